#include "consolelistener.h"

#include "consoleconnection.h"

namespace simulator
{

ConsoleListener::ConsoleListener(const Console &console, hardware::Journal &journal)
    : m_console(console)
    , m_reader(journal)
{
    setSocketOptions(UserAccessOption);
}

ConsoleListener::~ConsoleListener()
{
    qDeleteAll(m_connections);
}

void ConsoleListener::incomingConnection(quintptr descriptor)
{
    auto *connection = new ConsoleConnection(m_console, m_reader, descriptor);
    m_connections.append(connection);
    connect(connection, &QThread::finished, this, [this, connection] { forget(connection); });
    connection->start();
}

void ConsoleListener::forget(ConsoleConnection *connection)
{
    m_connections.removeOne(connection);
    connection->deleteLater();
}

} // namespace simulator
