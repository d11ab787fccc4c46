#include "consoleserver.h"

#include "consolelistener.h"

namespace simulator
{

ConsoleServer::ConsoleServer(const Console &console)
    : m_console(console)
{
}

ConsoleServer::~ConsoleServer()
{
    m_thread.quit();
    m_thread.wait();
}

bool ConsoleServer::listen(const QString &name, hardware::Journal &journal, QString *error)
{
    auto *listener = new ConsoleListener(m_console, journal);
    listener->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, listener, &QObject::deleteLater);
    m_thread.start();

    bool listening = false;
    QMetaObject::invokeMethod(
        listener,
        [&] {
            QLocalServer::removeServer(name);
            listening = listener->listen(name);
            m_socketFile = listener->fullServerName();
        },
        Qt::BlockingQueuedConnection);
    if (!listening) {
        *error = QStringLiteral("The console's socket \"%1\" cannot be opened: %2.")
                     .arg(name, listener->errorString());
    }
    return listening;
}

QString ConsoleServer::socketFile() const
{
    return m_socketFile;
}

} // namespace simulator
