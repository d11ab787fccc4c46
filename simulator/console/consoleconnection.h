#pragma once

#include <QThread>

class QLocalSocket;

namespace hardware
{
class JournalReader;
}

namespace simulator
{

class Console;
class ConsoleSession;

/// One client of the console's socket, served on this thread until it hangs up.
class ConsoleConnection : public QThread
{
    Q_OBJECT

public:
    ConsoleConnection(const Console &console, hardware::JournalReader &reader, quintptr descriptor);
    /// Waits for the command that runs, if any.
    ~ConsoleConnection() override;

protected:
    void run() override;

private:
    void answerLines(QLocalSocket &socket, ConsoleSession &session);
    QByteArray answer(const QByteArray &line, ConsoleSession &session) const;

    const Console &m_console;
    hardware::JournalReader &m_reader;
    const quintptr m_descriptor;
};

} // namespace simulator
