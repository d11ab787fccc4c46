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
#include <csignal>
#include <iterator>

namespace hardware
{

namespace
{

constexpr int notRun = 126 << 8; // as a shell says that it cannot run something
constexpr int killed = SIGKILL;

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

/// Starts a shell with the command, as a group of its own. The command's bytes reach it as they
/// are, which a QProcess, whose arguments are texts, cannot promise. False with errno.
bool start(QByteArray command, const Environment &environment, pid_t *process)
{
    char shell[] = "sh";
    char option[] = "-c";
    char *const arguments[] = {shell, option, command.data(), nullptr};
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    errno =
        posix_spawn(process, "/bin/sh", nullptr, &attributes, arguments, environment.variables());
    posix_spawnattr_destroy(&attributes);
    return errno == 0;
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
    return runByShell(shellCommand.mapped());
}

/// As system().
int Shell::runByShell(QByteArray command) const
{
    const Environment environment(QFile::encodeName(m_folder.root()), m_clock);
    pid_t process = 0;
    {
        const QMutexLocker locker(&m_mutex);
        if (m_isOff) {
            return killed;
        }
        if (!start(command, environment, &process)) {
            return -1;
        }
        m_running.insert(process);
    }
    // Until it is taken out below, its number is no other process's.
    siginfo_t ended;
    while (waitid(P_PID, id_t(process), &ended, WEXITED | WNOWAIT) < 0 && errno == EINTR) { }
    const QMutexLocker locker(&m_mutex);
    int status = -1;
    waitpid(process, &status, 0);
    m_running.remove(process);
    m_isIdle.wakeAll();
    return status;
}

void Shell::powerOff()
{
    const QMutexLocker locker(&m_mutex);
    m_isOff = true;
    while (!m_running.isEmpty()) {
        for (const pid_t process : qAsConst(m_running)) {
            kill(-process, SIGKILL);
        }
        m_isIdle.wait(&m_mutex);
    }
}

void Shell::powerOn()
{
    const QMutexLocker locker(&m_mutex);
    m_isOff = false;
}

QByteArray Shell::mapped(const QByteArray &command)
{
    return ShellCommand(command).mapped();
}

} // namespace hardware
