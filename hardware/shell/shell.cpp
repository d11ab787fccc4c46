#include "shell.h"

#include "shellcommand.h"

#include "hardware/unit/clock.h"
#include "hardware/unit/journal.h"
#include "hardware/unit/unitfolder.h"

#include <QDir>
#include <QFile>
#include <QVector>

#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <iterator>

namespace hardware
{

namespace
{

constexpr int notRun = 126 << 8; // as a shell says that it cannot run something

/// The process's environment with the unit's variables in place of any of their names.
class Environment
{
public:
    Environment(const QByteArray &unitFolder, const Clock &clock)
        : m_own{"UNIT=" + unitFolder, "PATH=" + unitFolder + "/bin:" + qgetenv("PATH"),
                "UNIT_SECOND=" + QByteArray::number(std::llround(1e6 / clock.factor()))}
    {
        for (char **variable = environ; *variable != nullptr; ++variable) {
            if (!isOwn(*variable)) {
                m_variables.append(*variable);
            }
        }
        for (QByteArray &variable : m_own) {
            m_variables.append(variable.data());
        }
        m_variables.append(nullptr);
    }
    Q_DISABLE_COPY(Environment)

    char *const *variables() const { return m_variables.constData(); }

private:
    bool isOwn(const QByteArray &variable) const
    {
        return std::any_of(std::begin(m_own), std::end(m_own), [&](const QByteArray &own) {
            return variable.startsWith(own.left(own.indexOf('=') + 1));
        });
    }

    QByteArray m_own[3];
    QVector<char *> m_variables;
};

/// As system(), in that environment. The command's bytes reach the shell as they are, which a
/// QProcess, whose arguments are texts, cannot promise.
int runByShell(QByteArray command, const Environment &environment)
{
    char shell[] = "sh";
    char option[] = "-c";
    char *const arguments[] = {shell, option, command.data(), nullptr};
    pid_t process = 0;
    const int failure =
        posix_spawn(&process, "/bin/sh", nullptr, nullptr, arguments, environment.variables());
    if (failure != 0) {
        errno = failure;
        return -1;
    }
    int status = -1;
    while (waitpid(process, &status, 0) < 0) {
        if (errno != EINTR) {
            return -1;
        }
    }
    return status;
}

} // namespace

Shell::Shell(const UnitFolder &folder, const Clock &clock, Journal &journal)
    : m_folder(folder)
    , m_clock(clock)
    , m_journal(journal)
{
}

int Shell::run(const QByteArray &command) const
{
    const QString source = QStringLiteral("shell");
    const QString text = QString::fromLocal8Bit(command);
    const ShellCommand shellCommand(command, QFile::encodeName(QDir::currentPath()));
    if (shellCommand.leavesUnit()) {
        m_journal.write(source, QStringLiteral("refused ") + text);
        return notRun;
    }
    m_journal.write(source, text);
    return runByShell(shellCommand.mapped(),
                      Environment(QFile::encodeName(m_folder.root()), m_clock));
}

QByteArray Shell::mapped(const QByteArray &command)
{
    return ShellCommand(command).mapped();
}

} // namespace hardware
