#include "consolelistener.h"

#include "consoleconnection.h"

namespace simulator
{

ConsoleListener::ConsoleListener(const Console &console, qint64 position)
    : m_console(console)
    , m_position(position)
{
    setSocketOptions(UserAccessOption);
}

ConsoleListener::~ConsoleListener()
{
    qDeleteAll(m_connections);
}

void ConsoleListener::incomingConnection(quintptr descriptor)
{
    auto *connection = new ConsoleConnection(m_console, m_position, descriptor);
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
