#include "hardware/usb/ncmtest.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QtTest>

#include <functional>

using hardware::NcmFigures;
using hardware::NcmTest;

Q_DECLARE_METATYPE(hardware::NcmTest::Kind)

class tst_NcmTest : public QObject
{
    Q_OBJECT

private slots:
    void everyKindMovesBytes_data();
    void everyKindMovesBytes();
    void senderKeepsToItsRate_data();
    void senderKeepsToItsRate();
    void ratesAreOfTheUnitsTime();
    void startEndsTheTestBefore();
    void stopWithoutATest();
    void figuresStayAfterTheStop();
    void serverIsAProcessOfTheUnit_data();
    void serverIsAProcessOfTheUnit();
    void killallEndsTheServer();
    void killallWithoutAServerFails();
    void refusedStart();
    void refusedStartEndsTheTestBefore();
    void descriptionBeforeAnyTest();
    void unitEndsWhileATestRuns();
};

namespace
{

const int patienceMs = 20000; // of a busy machine
const qint64 someBytes = 100000;

void addKinds()
{
    QTest::addColumn<NcmTest::Kind>("kind");
    QTest::addColumn<QString>("name");
    QTest::newRow("tcp server") << NcmTest::TcpServer << QStringLiteral("tcp server");
    QTest::newRow("udp server") << NcmTest::UdpServer << QStringLiteral("udp server");
    QTest::newRow("udp client 50") << NcmTest::UdpClient50 << QStringLiteral("udp client 50");
    QTest::newRow("udp client 100") << NcmTest::UdpClient100 << QStringLiteral("udp client 100");
    QTest::newRow("tcp client") << NcmTest::TcpClient << QStringLiteral("tcp client");
}

bool moves(const NcmTest &test)
{
    return QTest::qWaitFor([&test] { return test.figures().bytesReceived >= someBytes; },
                           patienceMs);
}

} // namespace

void tst_NcmTest::everyKindMovesBytes_data()
{
    addKinds();
}

void tst_NcmTest::everyKindMovesBytes()
{
    QFETCH(NcmTest::Kind, kind);
    QFETCH(QString, name);
    OpenUnit unit;
    NcmTest &test = unit->ncmTest();
    QVERIFY(test.start(kind));
    QVERIFY(test.isRunning());
    QVERIFY(moves(test));
    QCOMPARE(test.description().constFirst(), name + QStringLiteral(" runs"));
    QVERIFY(test.stop());
    QVERIFY(!test.isRunning());

    const NcmFigures figures = test.figures();
    QVERIFY(figures.bytesReceived <= figures.bytesSent);
    QVERIFY(figures.datagramsLost >= 0);
    QVERIFY(figures.seconds > 0);
    QVERIFY(figures.megabits() > 0);
    QCOMPARE(test.description().constFirst(), name + QStringLiteral(" ended"));
    const QStringList lines = unit->journal().lines();
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0), QStringLiteral("ncm start ") + name);
    QCOMPARE(lines.at(1), QStringLiteral("ncm stop"));
    QCOMPARE(lines.at(2), QStringLiteral("ncm ended %1, %2").arg(name, test.description().at(1)));
}

void tst_NcmTest::senderKeepsToItsRate_data()
{
    QTest::addColumn<NcmTest::Kind>("kind");
    QTest::addColumn<double>("megabits");
    QTest::newRow("50") << NcmTest::UdpClient50 << 50.0;
    QTest::newRow("100") << NcmTest::UdpClient100 << 100.0;
}

void tst_NcmTest::senderKeepsToItsRate()
{
    QFETCH(NcmTest::Kind, kind);
    QFETCH(double, megabits);
    OpenUnit unit;
    NcmTest &test = unit->ncmTest();
    QVERIFY(test.start(kind));
    QVERIFY(QTest::qWaitFor([&test] { return test.figures().seconds >= 1; }, patienceMs));
    test.stop();
    const NcmFigures figures = test.figures();
    // One datagram of 1400 bytes may be under way. A slow machine sends less, never more.
    QVERIFY2(
        figures.bytesSent <= megabits * 1e6 / 8 * figures.seconds + 1400,
        qPrintable(QStringLiteral("%1 bytes in %2 s").arg(figures.bytesSent).arg(figures.seconds)));
    QVERIFY(figures.bytesSent > megabits * 1e6 / 8 * figures.seconds / 20);
}

void tst_NcmTest::ratesAreOfTheUnitsTime()
{
    OpenUnit unit(0.1);
    NcmTest &test = unit->ncmTest();
    QElapsedTimer timer;
    timer.start();
    QVERIFY(test.start(NcmTest::UdpClient50));
    QTest::qWait(500);
    test.stop();
    const double hostSeconds = timer.nsecsElapsed() / 1e9;
    QVERIFY(test.figures().seconds <= hostSeconds * 0.1);
    QVERIFY(test.figures().seconds >= 0.04);
    // A tenth of 50 Mbit/s by the host's clock.
    QVERIFY(test.figures().bytesSent <= 5e6 / 8 * hostSeconds + 1400);
    QVERIFY(test.figures().bytesSent > 0);
}

void tst_NcmTest::startEndsTheTestBefore()
{
    OpenUnit unit;
    NcmTest &test = unit->ncmTest();
    QVERIFY(test.start(NcmTest::TcpServer));
    QVERIFY(test.start(NcmTest::UdpClient100));
    QVERIFY(test.isRunning());
    QVERIFY(moves(test));
    QCOMPARE(test.description().constFirst(), QStringLiteral("udp client 100 runs"));
    const QStringList lines = unit->journal().lines();
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(1), QStringLiteral("ncm start udp client 100"));
    QVERIFY(lines.at(2).startsWith(QLatin1String("ncm ended tcp server, ")));
}

void tst_NcmTest::stopWithoutATest()
{
    OpenUnit unit;
    QVERIFY(!unit->ncmTest().stop());
    QCOMPARE(unit->journal().lines(), QStringList(QStringLiteral("ncm stop")));
}

void tst_NcmTest::figuresStayAfterTheStop()
{
    OpenUnit unit;
    NcmTest &test = unit->ncmTest();
    QVERIFY(test.start(NcmTest::TcpClient));
    QVERIFY(moves(test));
    test.stop();
    const NcmFigures figures = test.figures();
    QTest::qWait(50);
    QCOMPARE(test.figures().bytesSent, figures.bytesSent);
    QCOMPARE(test.figures().bytesReceived, figures.bytesReceived);
    QCOMPARE(test.figures().seconds, figures.seconds);
    QVERIFY(!test.stop());
}

void tst_NcmTest::serverIsAProcessOfTheUnit_data()
{
    addKinds();
}

void tst_NcmTest::serverIsAProcessOfTheUnit()
{
    QFETCH(NcmTest::Kind, kind);
    OpenUnit unit;
    const QString process = unit.path(QStringLiteral("/run/as_server"));
    QVERIFY(unit->ncmTest().start(kind));
    const bool isServer = kind == NcmTest::TcpServer || kind == NcmTest::UdpServer;
    QCOMPARE(QFile::exists(process), isServer);
    unit->ncmTest().stop();
    QVERIFY(!QFile::exists(process));
}

void tst_NcmTest::killallEndsTheServer()
{
    OpenUnit unit;
    NcmTest &test = unit->ncmTest();
    QVERIFY(test.start(NcmTest::UdpServer));
    QVERIFY(moves(test));
    QCOMPARE(unit->shell().run("killall as_server"), 0);
    QVERIFY(QTest::qWaitFor([&test] { return !test.isRunning(); }, patienceMs));
    QCOMPARE(test.description().constFirst(), QStringLiteral("udp server ended"));
    QVERIFY(!test.stop());
}

void tst_NcmTest::killallWithoutAServerFails()
{
    OpenUnit unit;
    QVERIFY(unit->ncmTest().start(NcmTest::UdpClient50));
    QVERIFY(unit->shell().run("killall as_server 2>/dev/null") != 0);
    QTest::qWait(100);
    QVERIFY(unit->ncmTest().isRunning());
}

void tst_NcmTest::refusedStart()
{
    OpenUnit unit;
    NcmTest &test = unit->ncmTest();
    test.refuseStarts(true);
    QVERIFY(!test.start(NcmTest::TcpServer));
    QVERIFY(!test.isRunning());
    QCOMPARE(unit->journal().lines(),
             QStringList({QStringLiteral("ncm start tcp server"),
                          QStringLiteral("ncm refused tcp server: no device is connected")}));
    QVERIFY(!QFile::exists(unit.path(QStringLiteral("/run/as_server"))));
    test.refuseStarts(false);
    QVERIFY(test.start(NcmTest::TcpServer));
}

void tst_NcmTest::refusedStartEndsTheTestBefore()
{
    OpenUnit unit;
    NcmTest &test = unit->ncmTest();
    QVERIFY(test.start(NcmTest::TcpServer));
    test.refuseStarts(true);
    QVERIFY(!test.start(NcmTest::TcpClient));
    QVERIFY(!test.isRunning());
}

void tst_NcmTest::descriptionBeforeAnyTest()
{
    OpenUnit unit;
    QCOMPARE(unit->ncmTest().description(), QStringList(QStringLiteral("no test has run")));
    QCOMPARE(unit->ncmTest().figures().bytesSent, 0);
}

void tst_NcmTest::unitEndsWhileATestRuns()
{
    QScopedPointer<OpenUnit> unit(new OpenUnit);
    QVERIFY((*unit)->ncmTest().start(NcmTest::TcpServer));
    QVERIFY(moves((*unit)->ncmTest()));
    unit.reset();
}

FACTORY_TEST_GUILESS_MAIN(tst_NcmTest)
#include "tst_ncmtest.moc"
