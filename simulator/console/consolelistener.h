#pragma once

#include "hardware/unit/journalreader.h"

#include <QList>
#include <QLocalServer>

namespace simulator
{

class Console;
class ConsoleConnection;

/// The console's socket: makes a ConsoleConnection for every client, and ends them with itself.
class ConsoleListener : public QLocalServer
{
    Q_OBJECT

public:
    ConsoleListener(const Console &console, hardware::Journal &journal);
    ~ConsoleListener() override;

protected:
    void incomingConnection(quintptr descriptor) override;

private:
    void forget(ConsoleConnection *connection);

    const Console &m_console;
    hardware::JournalReader m_reader;
    QList<ConsoleConnection *> m_connections;
};

} // namespace simulator
