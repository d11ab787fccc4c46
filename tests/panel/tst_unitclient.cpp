#include "panelunit.h"

#include "panel/unitclient.h"

#include "support/testmain.h"

#include <QJsonArray>
#include <QLocalServer>
#include <QtTest>

using namespace panel;

/// What the panel knows of a unit that runs in a program of its own.
class TestUnitClient : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void knowsTheState();
    void tellsTheJournalFromItsBeginning();
    void hearsCallsWhereWanted();
    void showsTheScreen();
    void tellsWhatFails();
    void everyWordArrivesAsItIs();
    void failsWithoutAUnit();
    void attachesToNobodyElse();
    void attachesAgain();
    void twoAtOnce();

private:
    void attach();
    bool hears(const QString &text) const;

    PanelUnit m_unit;
    QScopedPointer<UnitClient> m_client;
    JournalLines m_lines;
};

void TestUnitClient::initTestCase()
{
    QVERIFY(m_unit.start());
}

void TestUnitClient::init()
{
    m_lines.clear();
    m_client.reset(new UnitClient(m_unit.folder()));
    connect(m_client.data(), &UnitClient::journalGrew, this,
            [this](const JournalLines &lines) { m_lines += lines; });
    connect(m_client.data(), &UnitClient::journalRestarted, this, [this] { m_lines.clear(); });
}

void TestUnitClient::attach()
{
    m_client->start();
    QTRY_VERIFY_WITH_TIMEOUT(m_client->isAttached() && !m_client->device("faults").isEmpty(),
                             patienceMs);
}

bool TestUnitClient::hears(const QString &text) const
{
    return std::any_of(m_lines.cbegin(), m_lines.cend(), [&text](const JournalLine &line) {
        return line.source + ' ' + line.text == text;
    });
}

void TestUnitClient::knowsTheState()
{
    attach();
    QCOMPARE(m_client->device("unit").value("speed"), QJsonValue(5));
    QCOMPARE(m_client->device("storage").value("slots").toArray().size(), 4);
    m_client->command({"als", "77"});
    QTRY_COMPARE_WITH_TIMEOUT(m_client->device("light").value("reading"), QJsonValue(77),
                              patienceMs);
}

void TestUnitClient::tellsTheJournalFromItsBeginning()
{
    m_unit.ask({"als", "31"});
    attach();
    QTRY_VERIFY_WITH_TIMEOUT(hears("als reading 31"), patienceMs);
    m_client->command({"als", "32"});
    QTRY_VERIFY_WITH_TIMEOUT(hears("als reading 32"), patienceMs);
    // Each once, in order.
    qint64 before = -1;
    for (const JournalLine &line : qAsConst(m_lines)) {
        QVERIFY(line.number > before);
        before = line.number;
        QVERIFY2(line.source != "gate" && line.source != "asked", qPrintable(line.source));
    }
}

void TestUnitClient::hearsCallsWhereWanted()
{
    attach();
    m_client->setHearingCalls(true);
    m_client->command({"key", "FACTORY"});
    QTRY_VERIFY_WITH_TIMEOUT(
        std::any_of(m_lines.cbegin(), m_lines.cend(),
                    [](const JournalLine &line) { return line.source == "asked"; }),
        patienceMs);
    m_client->setHearingCalls(false);
    m_client->command({"als", "33"});
    QTRY_VERIFY_WITH_TIMEOUT(hears("als reading 33"), patienceMs);
    QVERIFY(std::none_of(m_lines.cbegin(), m_lines.cend(),
                         [](const JournalLine &line) { return line.source == "asked"; }));
}

void TestUnitClient::showsTheScreen()
{
    m_unit.ask({"key", "HOME"});
    m_unit.ask({"see", "Simulated head unit", "60000"});
    QSignalSpy screens(m_client.data(), &UnitClient::screenChanged);
    attach();
    QTest::qWait(400);
    QCOMPARE(screens.size(), 0); // nobody looks
    m_client->setWatchingScreen(true);
    QTRY_COMPARE_WITH_TIMEOUT(screens.size(), 1, patienceMs);
    QTest::qWait(400);
    QCOMPARE(screens.size(), 1); // nothing new to see
    m_client->command({"key", "FACTORY"});
    QTRY_VERIFY_WITH_TIMEOUT(screens.size() >= 2, patienceMs);
    QCOMPARE(screens.constFirst().constFirst().value<QImage>().size(), QSize(800, 480));
}

void TestUnitClient::tellsWhatFails()
{
    QSignalSpy failed(m_client.data(), &UnitClient::commandFailed);
    attach();
    m_client->command({"pull", "usb1"});
    QTRY_COMPARE_WITH_TIMEOUT(failed.size(), 1, patienceMs);
    QCOMPARE(failed.first(), (QVariantList{"pull usb1", "There is no stick in slot \"usb1\"."}));
}

void TestUnitClient::everyWordArrivesAsItIs()
{
    attach();
    for (const char *word : {"two words", "\"quoted\"", "a\\b", "$HOME ${x}", "# none", "it's"}) {
        m_client->command({"setting", "panel/word", word});
        QTRY_COMPARE_WITH_TIMEOUT(
            m_client->device("settings").value("values").toObject().value("panel/word"),
            QJsonValue(word), patienceMs);
    }
}

void TestUnitClient::failsWithoutAUnit()
{
    QTemporaryDir folder;
    UnitClient client(folder.path());
    QSignalSpy failed(&client, &UnitClient::commandFailed);
    client.command({"als", "1"});
    QCOMPARE(failed.size(), 1);
    QCOMPARE(failed.first(), (QVariantList{"als 1", "no unit is connected"}));
    client.start();
    QTest::qWait(100);
    QVERIFY(!client.isAttached());
}

/// To no socket in a folder where others could have put it.
void TestUnitClient::attachesToNobodyElse()
{
    const QTemporaryDir folder;
    const QString socket = folder.filePath("sockets/socket");
    QVERIFY(QDir(folder.path()).mkdir("sockets"));
    QVERIFY(QFile::link(socket, folder.filePath("console.socket")));
    QLocalServer server;
    QVERIFY(server.listen(socket));
    UnitClient client(folder.path());
    QSignalSpy attached(&client, &UnitClient::attached);

    QVERIFY(QFile::setPermissions(folder.filePath("sockets"), QFile::Permissions(0x7050)));
    client.start();
    QTest::qWait(100);
    QVERIFY(!server.hasPendingConnections());
    QVERIFY(QFile::setPermissions(folder.filePath("sockets"), QFile::Permissions(0x7000)));
    client.start();
    QTRY_COMPARE_WITH_TIMEOUT(attached.size(), 1, patienceMs);
}

void TestUnitClient::attachesAgain()
{
    QSignalSpy detached(m_client.data(), &UnitClient::detached);
    attach();
    m_unit.kill();
    QTRY_COMPARE_WITH_TIMEOUT(detached.size(), 1, patienceMs);
    QVERIFY(!m_client->isAttached());
    QVERIFY(m_unit.start("2"));
    QTRY_COMPARE_WITH_TIMEOUT(m_client->device("unit").value("speed"), QJsonValue(2), patienceMs);
    m_client->command({"als", "44"});
    QTRY_VERIFY_WITH_TIMEOUT(hears("als reading 44"), patienceMs);
}

void TestUnitClient::twoAtOnce()
{
    attach();
    UnitClient second(m_unit.folder());
    second.start();
    QTRY_VERIFY_WITH_TIMEOUT(!second.device("light").isEmpty(), patienceMs);
    second.command({"als", "55"});
    QTRY_COMPARE_WITH_TIMEOUT(m_client->device("light").value("reading"), QJsonValue(55),
                              patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(second.device("light").value("reading"), QJsonValue(55), patienceMs);
}

FACTORY_TEST_MAIN(TestUnitClient)
#include "tst_unitclient.moc"
