// What a unit answers the panel: its state and the lines of its journal, as objects of JSON, one a
// line, and the lines of the protocol around them. Every question is answered with the bytes; all
// the panel's views look at them.

#include "fuzzing.h"
#include "screenless.h"

#include "panel/faultview.h"
#include "panel/journalview.h"
#include "panel/lightview.h"
#include "panel/memoryview.h"
#include "panel/receiverview.h"
#include "panel/sessionbar.h"
#include "panel/storageview.h"
#include "panel/unitclient.h"
#include "panel/valuesview.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalServer>
#include <QTemporaryDir>

using namespace panel;

namespace
{

/// Answers as no unit would.
class Answerer
{
public:
    Answerer()
    {
        const QString socket = m_folder.filePath(QStringLiteral("socket"));
        require(m_server.listen(socket)
                    && QFile::link(socket, m_folder.filePath(QStringLiteral("console.socket"))),
                "there is a socket");
    }

    QString folder() const { return m_folder.path(); }
    bool isDone() const { return m_answered >= 2; }

    void begin(const QByteArray &answer)
    {
        m_answer = answer;
        m_answered = 0;
    }

    void work()
    {
        while (QLocalSocket *socket = m_server.nextPendingConnection()) {
            m_sockets.append(socket);
        }
        for (QLocalSocket *socket : qAsConst(m_sockets)) {
            while (socket->canReadLine()) {
                socket->readLine();
                socket->write(m_answer + "\nok\n");
                socket->flush();
                ++m_answered;
            }
        }
    }

    void hangUp()
    {
        qDeleteAll(m_sockets);
        m_sockets.clear();
    }

private:
    QTemporaryDir m_folder;
    QLocalServer m_server;
    QList<QLocalSocket *> m_sockets;
    QByteArray m_answer;
    int m_answered = 0;
};

struct Views
{
    explicit Views(UnitClient &client)
        : faults(client, &window)
        , journal(client, &window)
        , light(client, &window)
        , memory(client, &window)
        , receiver(client, &window)
        , session(client, &window)
        , storage(client, &window)
        , values(client, &window)
    {
    }

    QWidget window;
    FaultView faults;
    JournalView journal;
    LightView light;
    MemoryView memory;
    ReceiverView receiver;
    SessionBar session;
    StorageView storage;
    ValuesView values;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startScreenless();
    static Answerer unit;
    static UnitClient client(unit.folder());
    static Views views(client);
    const QByteArray answer(reinterpret_cast<const char *>(data), int(size));
    unit.begin(answer);
    client.start();
    QElapsedTimer clock;
    clock.start();
    const int patienceMs = 5000;
    while (!unit.isDone()) {
        QCoreApplication::processEvents();
        unit.work();
        require(clock.elapsed() < patienceMs, "the panel asks");
    }
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();

    // The client tells of the journal a few times a second only.
    JournalLines lines;
    const QList<QByteArray> texts = answer.split('\n');
    for (const QByteArray &text : texts) {
        const std::optional<JournalLine> line = JournalLine::read(QString::fromUtf8(text));
        if (line) {
            lines.append(*line);
        }
    }
    emit client.journalGrew(lines);
    unit.hangUp();
    while (client.isAttached()) {
        QCoreApplication::processEvents();
        require(clock.elapsed() < patienceMs, "the panel notices that its unit has gone");
    }
    return 0;
}
