#include "scriptrunner.h"

#include "console.h"
#include "consolesession.h"

#include <cstdio>

namespace simulator
{

namespace
{

void print(FILE *stream, const QString &line)
{
    std::fprintf(stream, "%s\n", qUtf8Printable(line));
    std::fflush(stream);
}

void printAnswer(FILE *stream, const QStringList &lines)
{
    for (const QString &line : lines) {
        print(stream, QLatin1String("  ") + line);
    }
}

} // namespace

ScriptRunner::ScriptRunner(const Console &console, hardware::Journal &journal)
    : m_console(console)
    , m_reader(journal)
{
}

ScriptRunner::~ScriptRunner()
{
    m_input.interrupt();
    wait();
}

bool ScriptRunner::open(const QString &file, QString *error)
{
    m_name = file == QLatin1String("-") ? QStringLiteral("<stdin>") : file;
    return m_input.open(file, error);
}

void ScriptRunner::run()
{
    ConsoleSession session(m_reader);
    session.setListener([](const QStringList &lines) { printAnswer(stdout, lines); });
    QByteArray line;
    int number = 0;
    bool successful = true;
    bool ended = false;
    while (successful && !ended && m_input.readLine(&line)) {
        successful = runLine(line, ++number, session, &ended);
    }
    if (!m_input.error().isEmpty()) {
        print(stderr, m_input.error());
        successful = false;
    }
    emit over(successful);
}

bool ScriptRunner::runLine(const QByteArray &line, int number, ConsoleSession &session,
                           bool *ended) const
{
    const ConsoleResult result = m_console.run(QString::fromUtf8(line), session);
    *ended = result.endsSession;
    if (!result.isOk()) {
        print(stderr, QStringLiteral("%1:%2: %3").arg(m_name).arg(number).arg(result.error));
    }
    printAnswer(result.isOk() ? stdout : stderr, result.lines);
    return result.isOk();
}

} // namespace simulator
