#include "simulator/console/consoleserver.h"

#include "simulator/console/consoleclient.h"

#include "servedunit.h"

#include "simulator/window/screen.h"
#include "support/testmain.h"

#include <QDeadlineTimer>
#include <QImage>
#include <QLocalSocket>
#include <QtTest>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace simulator;

namespace
{

struct Answer
{
    bool ok = false;
    QStringList lines;
    QString error;
};

/// Commands that a client of its own gives, on a thread of its own.
class Client
{
public:
    Client(const ServedUnit &served, const QList<QStringList> &commands)
        : m_thread(QThread::create([this, folder = served.folder(), commands] {
            ConsoleClient client;
            QString error;
            if (!client.connectTo(folder, &error)) {
                qWarning("%s", qPrintable(error));
                return;
            }
            for (const QStringList &command : commands) {
                Answer answer;
                answer.ok = client.run(command, &answer.lines, &answer.error);
                m_answers.append(answer);
            }
        }))
    {
        m_thread->start();
    }

    ~Client() { m_thread->wait(); }

    /// Waits with the graphical thread blocked.
    bool waitBlocking(int ms) { return m_thread->wait(ms); }

    /// Waits while the graphical thread works.
    QList<Answer> answers()
    {
        while (!m_thread->isFinished()) {
            QTest::qWait(5);
        }
        return m_answers;
    }

private:
    QList<Answer> m_answers;
    QScopedPointer<QThread> m_thread;
};

/// What the socket gives in answer to some bytes, up to so many lines.
QByteArrayList exchange(const ServedUnit &served, const QByteArray &bytes, int lines)
{
    QLocalSocket socket;
    socket.connectToServer(served.name());
    socket.write(bytes);
    QByteArrayList answer;
    while (answer.size() < lines) {
        while (!socket.canReadLine()) {
            if (!socket.waitForReadyRead(5000)) {
                return answer << "(nothing more)";
            }
        }
        answer.append(socket.readLine());
    }
    return answer;
}

} // namespace

class TestConsoleServer : public QObject
{
    Q_OBJECT

private slots:
    void answersCommands();
    void speaksLines();
    void textOfSeveralLinesStaysText();
    void severalCommandsAtOnce();
    void connectionsShareThePlaceInTheJournal();
    void connectionsHaveTheirOwnFolder();
    void commandsForTheScreenAreRunThere();
    void answersWhileTheGraphicalThreadIsBlocked();
    void shotsWhileTheGraphicalThreadIsBlocked();
    void shotsWaitForABusyGraphicalThread();
    void oneClientDoesNotHoldUpAnother();
    void endsWhileACommandWaits();
    void onlyTheUserMayConnect();
    void noSocketInAFolderOfOthers();
    void theFolderLeadsToTheSocket();
    void takesOverAStaleSocket();
    void saysWhenItCannotListen();
    void clientSaysWhenNoUnitRuns();
    void lineHasALongestLength();
};

void TestConsoleServer::answersCommands()
{
    ServedUnit served;
    Client client(served, {{"setting", "name", "it's \"so\""}, {"setting", "name"}, {"dance"}});
    const QList<Answer> answers = client.answers();
    QCOMPARE(answers.size(), 3);
    QVERIFY(answers.at(0).ok);
    QVERIFY(answers.at(1).ok);
    QCOMPARE(answers.at(1).lines, QStringList{"it's \"so\""});
    QVERIFY(!answers.at(2).ok);
    QCOMPARE(answers.at(2).error, QString("unknown command \"dance\"; \"help\" lists them"));
}

void TestConsoleServer::speaksLines()
{
    ServedUnit served;
    QCOMPARE(exchange(served, "setting a '  b'\n", 1), QByteArrayList{"ok\n"});
    QCOMPARE(exchange(served, "setting a\n", 2), (QByteArrayList{"   b\n", "ok\n"}));
    QCOMPARE(exchange(served, "\n# nothing\r\n", 2), (QByteArrayList{"ok\n", "ok\n"}));
    QCOMPARE(exchange(served, "wait\n", 1), QByteArrayList{"error usage: wait MS\n"});

    QFile script(served.folder() + "/script.txt");
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("setting a\n");
    script.close();
    QCOMPARE(exchange(served, "include '" + script.fileName().toUtf8() + "'\n", 2),
             (QByteArrayList{">  b\n", "ok\n"}));
}

void TestConsoleServer::textOfSeveralLinesStaysText()
{
    ServedUnit served;
    Client client(served, {{"setting", "text", "one\nok"}, {"setting", "text"}, {"see", "x\ny"}});
    const QList<Answer> answers = client.answers();
    QVERIFY(answers.at(1).ok);
    QCOMPARE(answers.at(1).lines, (QStringList{"one", "ok"}));
    QVERIFY(!answers.at(2).ok);
    QCOMPARE(answers.at(2).error, QString("the screen does not show \"x y\"; shown are its texts"));
}

void TestConsoleServer::severalCommandsAtOnce()
{
    ServedUnit served;
    QCOMPARE(exchange(served, "setting a 1\nsetting a\nsetting b\n", 4),
             (QByteArrayList{"ok\n", " 1\n", "ok\n", "error there is no setting \"b\"\n"}));
}

void TestConsoleServer::connectionsShareThePlaceInTheJournal()
{
    ServedUnit served;
    served.unit.journal().write("probe", "one");
    served.unit.journal().write("probe", "two");
    QCOMPARE(exchange(served, "expect 'probe one'\n", 1), QByteArrayList{"ok\n"});
    QCOMPARE(exchange(served, "absent 'probe one'\n", 1), QByteArrayList{"ok\n"});
    QCOMPARE(exchange(served, "expect 'probe two'\n", 1), QByteArrayList{"ok\n"});
}

void TestConsoleServer::connectionsHaveTheirOwnFolder()
{
    ServedUnit served;
    Client first(served, {{"cd", served.folder()}, {"shot", "first.png"}});
    QVERIFY(first.answers().at(1).ok);
    QVERIFY(QFile::exists(served.folder() + "/first.png"));
    const QTemporaryDir other;
    Client second(served, {{"cd", other.path()}, {"shot", "second.png"}});
    QVERIFY(second.answers().at(1).ok);
    QVERIFY(QFile::exists(other.filePath("second.png")));
}

void TestConsoleServer::commandsForTheScreenAreRunThere()
{
    ServedUnit served;
    Client client(
        served,
        {{"key", "FACTORY"}, {"see", "test activity"}, {"press", "count"}, {"see", "presses: 1"}});
    const QList<Answer> answers = client.answers();
    for (const Answer &answer : answers) {
        QVERIFY2(answer.ok, qPrintable(answer.error));
    }
}

void TestConsoleServer::answersWhileTheGraphicalThreadIsBlocked()
{
    ServedUnit served;
    Client client(served,
                  {{"plug", "usb0"},
                   {"expect", "storage plug usb0"},
                   {"absent", "storage pull"},
                   {"wait", "10"},
                   {"mark"},
                   {"journal", "storage plug"},
                   {"setting", "a", "1"},
                   {"help"}});
    // No event loop runs here until it has its answers.
    QVERIFY(client.waitBlocking(10000));
    const QList<Answer> answers = client.answers();
    QCOMPARE(answers.size(), 8);
    for (const Answer &answer : answers) {
        QVERIFY2(answer.ok, qPrintable(answer.error));
    }
    QCOMPARE(answers.at(5).lines.size(), 1);
}

void TestConsoleServer::shotsWhileTheGraphicalThreadIsBlocked()
{
    ServedUnit served;
    QTRY_VERIFY(!served.unit.simulator().bezel().lastFrame().isNull());
    QCOMPARE(served.unit.errorOf("shot before.png"), QString());
    Client client(served, {{"cd", served.folder()}, {"shot", "during.png"}});
    QVERIFY(client.waitBlocking(10000));
    QVERIFY(client.answers().at(1).ok);
    const QImage during(served.folder() + "/during.png");
    QCOMPARE(during.size(), QSize(800, 480));
    QCOMPARE(during, QImage(served.folder() + "/../before.png"));
}

void TestConsoleServer::shotsWaitForABusyGraphicalThread()
{
    ServedUnit served;
    QTRY_VERIFY(!served.unit.simulator().bezel().lastFrame().isNull());
    QCOMPARE(served.unit.errorOf("shot before.png"), QString());
    served.unit.simulator().bezel().screen().setBooting(true);
    Client client(served, {{"cd", served.folder()}, {"shot", "during.png"}});
    const QDeadlineTimer busy(1000);
    while (!busy.hasExpired()) { }
    QVERIFY(client.answers().at(1).ok);
    QCOMPARE(served.unit.errorOf("shot after.png"), QString());
    const QImage during(served.folder() + "/during.png");
    QVERIFY(during != QImage(served.folder() + "/../before.png"));
    QCOMPARE(during, QImage(served.folder() + "/../after.png"));
}

void TestConsoleServer::oneClientDoesNotHoldUpAnother()
{
    ServedUnit served;
    Client waiting(served, {{"key", "FACTORY"}});
    Client other(served, {{"journal"}, {"setting", "a", "1"}});
    QVERIFY(other.waitBlocking(10000));
    QVERIFY(!waiting.waitBlocking(100));
    QVERIFY(waiting.answers().at(0).ok);
}

void TestConsoleServer::endsWhileACommandWaits()
{
    QElapsedTimer time;
    time.start();
    {
        auto served = std::make_unique<ServedUnit>();
        Client first(*served, {{"expect", "never", "3600000"}});
        Client second(*served, {{"wait", "3600000"}});
        Client third(*served, {{"key", "FACTORY"}});
        QThread::msleep(200);
        served.reset();
        QVERIFY(!first.answers().at(0).ok);
        QVERIFY(!third.answers().at(0).ok);
    }
    QVERIFY2(time.elapsed() < 30000, qPrintable(QString::number(time.elapsed())));
}

void TestConsoleServer::onlyTheUserMayConnect()
{
    ServedUnit served;
    const QByteArray path = QFile::encodeName(served.name());
    struct stat status = {};
    QCOMPARE(stat(path.constData(), &status), 0);
    QVERIFY(S_ISSOCK(status.st_mode));
    QCOMPARE(int(status.st_mode & (S_IRWXG | S_IRWXO)), 0);
    QCOMPARE(stat(QFileInfo(path).path().toLocal8Bit().constData(), &status), 0);
    QVERIFY(S_ISDIR(status.st_mode));
    QCOMPARE(int(status.st_mode & 07777), S_IRWXU);
    QCOMPARE(status.st_uid, geteuid());
}

/// Somebody else may have made it, to answer in the unit's place.
void TestConsoleServer::noSocketInAFolderOfOthers()
{
    const QTemporaryDir temporary;
    const QByteArray usual = QFile::encodeName(QDir::tempPath());
    qputenv("TMPDIR", QFile::encodeName(temporary.path()));
    TestSimulator unit;
    const QString name = consoleSocketName(unit.path(QString()));
    const QString folder = QFileInfo(name).path();
    QVERIFY(folder.startsWith(temporary.path()));
    const QString expected =
        QString("The consoles' folder \"%1\" is not yours, or open to others.").arg(folder);
    QString error;
    QVERIFY(QDir().mkdir(folder));
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7050)));
    ConsoleServer server(unit.console());
    QVERIFY(!server.listen(name, unit.journal(), &error));
    QCOMPARE(error, expected);
    error.clear();
    QVERIFY(!ConsoleClient().connectTo(unit.path(QString()), &error));
    QCOMPARE(error, expected);
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7000)));
    QVERIFY2(server.listen(name, unit.journal(), &error), qPrintable(error));
    unit.console().close();
    qputenv("TMPDIR", usual);
}

void TestConsoleServer::theFolderLeadsToTheSocket()
{
    TestSimulator unit;
    const QString link = unit.path("/console.socket");
    QVERIFY(QFile::link("/nowhere", link)); // as a crash would leave it
    QString error;
    {
        ConsoleServer server(unit.console());
        QVERIFY(server.listen(consoleSocketName(unit.path(QString())), unit.journal(), &error));
        QVERIFY2(server.linkFrom(link, &error), qPrintable(error));
        QCOMPARE(QFile::symLinkTarget(link), server.socketFile());
        QVERIFY(!server.linkFrom(unit.path("/no/folder"), &error));
        QVERIFY2(error.contains("cannot become a link to the console's socket: "),
                 qPrintable(error));
        unit.console().close();
    }
    QVERIFY(!QFileInfo(link).isSymLink());
}

void TestConsoleServer::takesOverAStaleSocket()
{
    TestSimulator unit;
    const QString name = consoleSocketName(unit.path(QString()));
    // What a killed program leaves: the socket's file, with nobody behind it.
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, QFile::encodeName(name).constData(), sizeof address.sun_path);
    QString error;
    QVERIFY2(makeSocketFolder(name, &error), qPrintable(error));
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    QVERIFY(descriptor >= 0);
    QCOMPARE(bind(descriptor, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    QCOMPARE(close(descriptor), 0);

    ConsoleServer server(unit.console());
    QVERIFY2(server.listen(name, unit.journal(), &error), qPrintable(error));
    QLocalSocket client;
    client.connectToServer(name);
    QVERIFY(client.waitForConnected(5000));
}

void TestConsoleServer::saysWhenItCannotListen()
{
    TestSimulator unit;
    ConsoleServer server(unit.console());
    // Longer than a socket's name can be.
    const QTemporaryDir folder;
    const QString name = folder.filePath(QString(108, 'x'));
    QString error;
    QVERIFY(!server.listen(name, unit.journal(), &error));
    QVERIFY2(error.startsWith(QString("The console's socket \"%1\" cannot be opened: ").arg(name)),
             qPrintable(error));
}

void TestConsoleServer::clientSaysWhenNoUnitRuns()
{
    const QTemporaryDir folder;
    for (const QString &path : {folder.path(), folder.filePath("missing")}) {
        ConsoleClient client;
        QString error;
        QVERIFY(!client.connectTo(path, &error));
        QCOMPARE(error, QString("No unit runs on the folder \"%1\".").arg(path));
    }
}

void TestConsoleServer::lineHasALongestLength()
{
    ServedUnit served;
    const QByteArray tooLong = "error a command is longer than 65536 bytes\n";
    QCOMPARE(exchange(served, "# " + QByteArray(65534, 'x') + "\nmark\n", 2),
             (QByteArrayList{"ok\n", "ok\n"}));
    for (const QByteArray &end : {QByteArray("\nmark\n"), QByteArray()}) {
        QCOMPARE(exchange(served, "# " + QByteArray(65535, 'x') + end, 2),
                 (QByteArrayList{tooLong, "(nothing more)"}));
    }
    Client client(served, {{"setting", "a", QString(65536, 'x')}});
    QCOMPARE(client.answers().constFirst().error, QString("a command is longer than 65536 bytes"));
}

FACTORY_TEST_MAIN(TestConsoleServer)
#include "tst_consoleserver.moc"
