#include "connection.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <sys/stat.h>
#include <unistd.h>

namespace panel
{

namespace
{

/// The console takes it for one word, whatever is in it; in quotes only where it must be, since
/// people read it in the journal.
QByteArray quoted(QString word)
{
    static const QRegularExpression plain(QStringLiteral("^[\\w./:+,=-]+$"));
    if (plain.match(word).hasMatch()) {
        return word.toUtf8();
    }
    word.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    word.replace(QLatin1Char('"'), QLatin1String("\\\""));
    word.replace(QLatin1Char('$'), QLatin1String("\\$"));
    word.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    return '"' + word.toUtf8() + '"';
}

/// Whether nobody else can have put the socket where it is.
bool liesInOwnFolder(const QString &socket)
{
    struct stat status = {};
    return lstat(QFile::encodeName(QFileInfo(socket).path()).constData(), &status) == 0
        && S_ISDIR(status.st_mode) && status.st_uid == geteuid()
        && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

} // namespace

Connection::Connection(QObject *parent)
    : QObject(parent)
{
    connect(&m_socket, &QLocalSocket::connected, this, &Connection::opened);
    connect(&m_socket, &QLocalSocket::readyRead, this, &Connection::readLines);
    connect(&m_socket, &QLocalSocket::disconnected, this, &Connection::end);
    connect(&m_socket, &QLocalSocket::errorOccurred, this, [this] {
        if (m_socket.state() == QLocalSocket::UnconnectedState) {
            end();
        }
    });
}

Connection::~Connection()
{
    m_socket.disconnect(this);
}

void Connection::open(const QString &unitFolder)
{
    const QString socket = QFileInfo(unitFolder + QLatin1String("/console.socket")).symLinkTarget();
    if (socket.isEmpty() || !liesInOwnFolder(socket)) {
        QMetaObject::invokeMethod(this, &Connection::lost, Qt::QueuedConnection);
        return;
    }
    m_socket.connectToServer(socket);
}

void Connection::close()
{
    m_socket.abort();
}

bool Connection::isOpen() const
{
    return m_socket.state() == QLocalSocket::ConnectedState;
}

void Connection::ask(const QStringList &words, const Taker &taker)
{
    if (!isOpen()) {
        if (taker) {
            taker({QStringList(), tr("no unit is connected")});
        }
        return;
    }
    QByteArrayList line;
    for (const QString &word : words) {
        line.append(quoted(word));
    }
    m_takers.enqueue(taker);
    m_socket.write(line.join(' ') + '\n');
}

int Connection::waiting() const
{
    return m_takers.size();
}

void Connection::readLines()
{
    while (m_socket.canReadLine()) {
        QByteArray line = m_socket.readLine();
        line.chop(1);
        readLine(QString::fromUtf8(line));
    }
}

/// ">" what is told on the way, " " a line of the answer, "ok" or "error …" its end.
void Connection::readLine(const QString &line)
{
    if (line.startsWith(QLatin1Char('>'))) {
        emit told(line.mid(1));
    } else if (line.startsWith(QLatin1Char(' '))) {
        m_lines.append(line.mid(1));
    } else if (!m_takers.isEmpty()) {
        Answer answer;
        answer.lines.swap(m_lines);
        if (line != QLatin1String("ok")) {
            answer.error = line.section(QLatin1Char(' '), 1);
        }
        const Taker taker = m_takers.dequeue();
        if (taker) {
            taker(answer);
        }
    }
}

void Connection::end()
{
    m_lines.clear();
    QQueue<Taker> takers;
    takers.swap(m_takers);
    for (const Taker &taker : qAsConst(takers)) {
        if (taker) {
            taker({QStringList(), tr("the unit went down before it had answered")});
        }
    }
    emit lost();
}

} // namespace panel
