#include "consoleconnection.h"

#include "commandline.h"
#include "console.h"
#include "consolesession.h"

#include <QLocalSocket>

#include <poll.h>

namespace simulator
{

namespace
{

/// One line of the protocol for each line of the texts.
QByteArray asLines(char mark, const QStringList &texts)
{
    QByteArray lines;
    for (const QString &text : texts) {
        lines += mark + text.toUtf8().replace('\n', QByteArray("\n") + mark) + '\n';
    }
    return lines;
}

/// Also while no event loop tells.
bool isConnected(const QLocalSocket &socket)
{
    pollfd hangUp = {int(socket.socketDescriptor()), 0, 0};
    return poll(&hangUp, 1, 0) == 0;
}

void send(QLocalSocket &socket, const QByteArray &bytes)
{
    if (isConnected(socket)) {
        socket.write(bytes);
        while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten()) { }
    }
}

} // namespace

ConsoleConnection::ConsoleConnection(const Console &console, hardware::JournalReader &reader,
                                     quintptr descriptor)
    : m_console(console)
    , m_reader(reader)
    , m_descriptor(descriptor)
{
}

ConsoleConnection::~ConsoleConnection()
{
    quit();
    wait();
}

void ConsoleConnection::run()
{
    ConsoleSession session(m_reader);
    QLocalSocket socket;
    session.setListener([&socket](const QStringList &lines) { send(socket, asLines('>', lines)); },
                        [&socket] { return isConnected(socket); });
    connect(
        &socket, &QLocalSocket::readyRead, &socket,
        [this, &socket, &session] { answerLines(socket, session); }, Qt::DirectConnection);
    connect(&socket, &QLocalSocket::disconnected, this, &QThread::quit, Qt::DirectConnection);
    if (socket.setSocketDescriptor(qintptr(m_descriptor))) {
        exec();
    }
}

void ConsoleConnection::answerLines(QLocalSocket &socket, ConsoleSession &session)
{
    while (socket.canReadLine() || socket.bytesAvailable() > commandline::maxLineBytes) {
        // With room for the end of the longest line, and for a zero byte of Qt's own.
        QByteArray line = socket.readLine(commandline::maxLineBytes + 2);
        const bool isWhole = line.endsWith('\n');
        line.chop(isWhole ? 1 : 0);
        send(socket, answer(line, session));
        if (!isWhole) {
            // Who sends this may well never end it.
            socket.disconnectFromServer();
            return;
        }
    }
    // A hang-up that is only noticed when writing may end no event loop.
    if (socket.state() == QLocalSocket::UnconnectedState) {
        quit();
    }
}

QByteArray ConsoleConnection::answer(const QByteArray &line, ConsoleSession &session) const
{
    const ConsoleResult result = m_console.run(QString::fromUtf8(line), session);
    const QByteArray lines = asLines(' ', result.lines);
    return lines
        + (result.isOk() ? QByteArrayLiteral("ok")
                         : "error " + result.error.toUtf8().replace('\n', ' '))
        + '\n';
}

} // namespace simulator
