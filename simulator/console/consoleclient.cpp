#include "consoleclient.h"

#include "commandline.h"
#include "unitaddress.h"

#include <QFileInfo>

namespace simulator
{

bool ConsoleClient::connectTo(const QString &unitFolder, QString *error)
{
    const QString name = consoleSocketName(unitFolder);
    if (!name.isEmpty() && QFileInfo::exists(QFileInfo(name).path())) {
        if (!hasOwnFolder(name, error)) {
            return false;
        }
        m_socket.connectToServer(name);
        if (m_socket.waitForConnected()) {
            return true;
        }
    }
    *error = QStringLiteral("No unit runs on the folder \"%1\".").arg(unitFolder);
    return false;
}

bool ConsoleClient::run(const QStringList &words, QStringList *lines, QString *error)
{
    return runLine(commandline::join(words).toUtf8(), lines, error);
}

bool ConsoleClient::runLine(const QByteArray &command, QStringList *lines, QString *error)
{
    lines->clear();
    if (command.size() > commandline::maxLineBytes) {
        *error = commandline::tooLong();
        return false;
    }
    m_socket.write(command + '\n');
    QByteArray line;
    while (readLine(&line)) {
        const QString text = QString::fromUtf8(line.mid(1));
        if (line.startsWith('>')) {
            m_listener(text);
        } else if (line.startsWith(' ')) {
            lines->append(text);
        } else {
            *error = QString::fromUtf8(line.mid(int(qstrlen("error "))));
            return line == "ok";
        }
    }
    *error = QStringLiteral("the unit went down before it had answered");
    return false;
}

bool ConsoleClient::isConnected() const
{
    return m_socket.state() == QLocalSocket::ConnectedState;
}

void ConsoleClient::setListener(const std::function<void(const QString &line)> &listener)
{
    m_listener = listener;
}

bool ConsoleClient::readLine(QByteArray *line)
{
    while (!m_socket.canReadLine()) {
        if (!m_socket.waitForReadyRead(-1)) {
            return false;
        }
    }
    *line = m_socket.readLine();
    line->chop(1);
    return true;
}

} // namespace simulator
