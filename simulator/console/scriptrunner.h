#pragma once

#include "scriptinput.h"
#include "scriptreport.h"

#include "hardware/unit/journalreader.h"

#include <QThread>

namespace simulator
{

class Console;
class ConsoleSession;

/// Runs a script of console commands, one a line, on a thread of its own, up to the first that
/// fails. What commands answer goes to standard output; a failure goes to standard error, as the
/// lines that belong to it and "FILE:LINE: message".
class ScriptRunner : public QThread
{
    Q_OBJECT

public:
    /// The script's reading of the journal begins at its end.
    ScriptRunner(const Console &console, hardware::Journal &journal);
    /// The console must be closed by then, or the script over.
    ~ScriptRunner() override;

    /// \a file "-" stands for standard input. False with a sentence in \a error.
    bool open(const QString &file, QString *error);

    /// Has it told in that file how the script went.
    void setReport(const QString &file);

signals:
    /// The script is over; \a successful when it was read to its end, no command failed, and
    /// the report could be written.
    void over(bool successful);

protected:
    void run() override;

private:
    void runLines();
    bool runLine(const QByteArray &line, int number, ConsoleSession &session);
    bool writeReport() const;

    const Console &m_console;
    hardware::JournalReader m_reader;
    QString m_name;
    ScriptInput m_input;
    ScriptReport m_report;
    QString m_reportFile;
};

} // namespace simulator
