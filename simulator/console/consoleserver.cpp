#include "consoleserver.h"

#include "consolelistener.h"
#include "unitaddress.h"

#include <QFile>

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
    if (!m_link.isEmpty()) {
        QFile::remove(m_link);
    }
}

bool ConsoleServer::listen(const QString &name, hardware::Journal &journal, QString *error)
{
    if (!makeSocketFolder(name, error)) {
        return false;
    }
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

bool ConsoleServer::linkFrom(const QString &path, QString *error)
{
    // One that a crash left behind.
    QFile::remove(path);
    QFile socket(m_socketFile);
    if (!socket.link(path)) {
        *error = QStringLiteral("\"%1\" cannot become a link to the console's socket: %2.")
                     .arg(path, socket.errorString());
        return false;
    }
    m_link = path;
    return true;
}

} // namespace simulator
