#include "scriptrunner.h"

#include "console.h"
#include "consolesession.h"

#include <QElapsedTimer>

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

void ScriptRunner::setReport(const QString &file)
{
    m_reportFile = file;
}

void ScriptRunner::run()
{
    QElapsedTimer time;
    time.start();
    runLines();
    if (!m_report.failure.isEmpty()) {
        // The reason last, where people look first.
        printAnswer(stderr, m_report.more);
        print(stderr, m_report.failure);
    }
    m_report.script = m_name;
    m_report.seconds = double(time.elapsed()) / 1000;
    const bool isReported = writeReport();
    emit over(m_report.failure.isEmpty() && isReported);
}

/// Up to the first that fails.
void ScriptRunner::runLines()
{
    ConsoleSession session(m_reader);
    session.setListener([](const QStringList &lines) { printAnswer(stdout, lines); });
    QByteArray line;
    int number = 0;
    while (m_input.readLine(&line)) {
        if (!runLine(line, ++number, session)) {
            return;
        }
    }
    m_report.failure = m_input.error();
}

/// False when no other line is to be run.
bool ScriptRunner::runLine(const QByteArray &line, int number, ConsoleSession &session)
{
    const ConsoleResult result = m_console.run(QString::fromUtf8(line), session);
    if (result.isOk()) {
        printAnswer(stdout, result.lines);
    } else {
        m_report.failure = QStringLiteral("%1:%2: %3").arg(m_name).arg(number).arg(result.error);
        m_report.more = result.lines;
    }
    return result.isOk() && !result.endsSession;
}

bool ScriptRunner::writeReport() const
{
    QString error;
    if (m_reportFile.isEmpty() || m_report.write(m_reportFile, &error)) {
        return true;
    }
    print(stderr, error);
    return false;
}

} // namespace simulator
