#pragma once

#include "consolesession.h"

#include <QThread>

class QLocalSocket;

namespace simulator
{

class Console;

/// One client of the console's socket, served on this thread until it hangs up.
class ConsoleConnection : public QThread
{
    Q_OBJECT

public:
    ConsoleConnection(const Console &console, JournalPosition &position, quintptr descriptor);
    /// Waits for the command that runs, if any.
    ~ConsoleConnection() override;

protected:
    void run() override;

private:
    void answerLines(QLocalSocket &socket, ConsoleSession &session);
    QByteArray answer(const QByteArray &line, ConsoleSession &session) const;

    const Console &m_console;
    JournalPosition &m_position;
    const quintptr m_descriptor;
};

} // namespace simulator
