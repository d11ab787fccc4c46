#include "commandprompt.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <editline/readline.h>

namespace simulator
{

namespace
{

const int linesKept = 1000;

} // namespace

CommandPrompt *CommandPrompt::current = nullptr;

CommandPrompt::CommandPrompt(const Completer &completer, const QString &historyFile)
    : m_completer(completer)
    , m_historyFile(QFile::encodeName(historyFile))
{
    current = this;
    rl_readline_name = "headunit-ctl";
    rl_attempted_completion_function = complete;
    using_history();
    stifle_history(linesKept);
    QDir().mkpath(QFileInfo(historyFile).path());
    read_history(m_historyFile.constData());
}

CommandPrompt::~CommandPrompt()
{
    // Without a place for it there is none the next time.
    write_history(m_historyFile.constData());
}

bool CommandPrompt::readLine(QByteArray *line)
{
    char *typed = readline("unit> ");
    if (typed == nullptr) {
        std::printf("\n");
        return false;
    }
    *line = typed;
    if (!line->trimmed().isEmpty()) {
        add_history(typed);
    }
    std::free(typed);
    return true;
}

char **CommandPrompt::complete(const char *word, int, int end)
{
    current->m_matches = current->m_completer(QString::fromUtf8(rl_line_buffer, end));
    // Where nothing fits, the library completes names of files.
    return rl_completion_matches(word, nextMatch);
}

char *CommandPrompt::nextMatch(const char *, int)
{
    QStringList &matches = current->m_matches;
    return matches.isEmpty() ? nullptr : strdup(matches.takeFirst().toUtf8().constData());
}

} // namespace simulator
