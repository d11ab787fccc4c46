#include "consoleconnection.h"

#include "commandline.h"
#include "console.h"
#include "consolesession.h"

#include <QLocalSocket>

namespace simulator
{

namespace
{

QByteArray asAnswer(const QString &line)
{
    return ' ' + line.toUtf8().replace('\n', "\n ") + '\n';
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
    session.setListener([&socket](const QString &line) { socket.write(asAnswer(line)); });
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
        socket.write(answer(line, session));
        socket.waitForBytesWritten();
        if (!isWhole) {
            // Who sends this may well never end it.
            socket.disconnectFromServer();
            return;
        }
    }
}

QByteArray ConsoleConnection::answer(const QByteArray &line, ConsoleSession &session) const
{
    const ConsoleResult result = m_console.run(QString::fromUtf8(line), session);
    QByteArray text;
    for (const QString &answered : result.lines) {
        text += asAnswer(answered);
    }
    text += result.isOk() ? QByteArrayLiteral("ok")
                          : "error " + result.error.toUtf8().replace('\n', ' ');
    return text + '\n';
}

} // namespace simulator
