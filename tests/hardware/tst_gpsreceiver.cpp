#include "receiverline.h"

#include "support/testmain.h"

#include <QFileInfo>
#include <QScopedPointer>
#include <QtTest>

/// The receiver as whoever has its port open knows it. The whole upgrade is tested with the
/// upgrader.
class TestGpsReceiver : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void portLeadsToTheReceiver();
    void tellsItsProduct();
    void understandsItsOwnSpeedOnly();
    void changesItsSpeed();
    void serviceGetsTheAnswers();
    void entersItsLoader();
    void secondPieceOfAnAnswerWaitsForItsReader();
    void restartRunsTheFirmware();
    void rebootMendsAHungUpLine();
    void unknownFault();
    void bytesAreJournalledOnDemand();

private:
    void say(const QByteArray &text) { m_line->say(text); }
    QByteArray answer() { return m_line->answer(); }
    hardware::GpsReceiver &receiver() { return m_line->receiver(); }
    hardware::Unit &unit() { return m_line->unit(); }

    QScopedPointer<ReceiverLine> m_line;
};

void TestGpsReceiver::init()
{
    m_line.reset();
    m_line.reset(new ReceiverLine);
}

void TestGpsReceiver::portLeadsToTheReceiver()
{
    QVERIFY(QFileInfo(m_line->path("/dev/ttyS3")).isSymLink());
    QCOMPARE(receiver().state(), QStringLiteral("runs GNSS 1.04.2, 230400 baud"));
    termios options;
    tcgetattr(m_line->port(), &options);
    QCOMPARE(uint(cfgetospeed(&options)), uint(B230400));
}

void TestGpsReceiver::tellsItsProduct()
{
    say("$PDTINFO\r\n");
    QCOMPARE(answer(), QByteArray("$PDTINFO,LODESTAR,GNSS 1.04.2\r\n"));
}

void TestGpsReceiver::understandsItsOwnSpeedOnly()
{
    say("\n");
    m_line->setSpeed(B9600);
    say("\n");
    QTest::qWait(100);
    say("$PDTINFO\r\n");
    QCOMPARE(answer(), QByteArray());
}

void TestGpsReceiver::changesItsSpeed()
{
    say("$CFGPRT,1,0,115200,3,3\n");
    QTRY_COMPARE(receiver().state(), QStringLiteral("runs GNSS 1.04.2, 115200 baud"));
    m_line->setSpeed(B115200);
    say("$PDTINFO\r\n");
    QCOMPARE(answer(), QByteArray("$PDTINFO,LODESTAR,GNSS 1.04.2\r\n"));
}

void TestGpsReceiver::serviceGetsTheAnswers()
{
    receiver().setServiceReading(true);
    say("$PDTINFO\r\n");
    QCOMPARE(answer(), QByteArray());
}

void TestGpsReceiver::entersItsLoader()
{
    say("$RESET,hf0,hff\n");
    QTRY_COMPARE(receiver().state(), QStringLiteral("is in its ROM, 230400 baud"));
    QTRY_VERIFY(!unit().journal().lines(QStringLiteral("receiver reset")).isEmpty());
    say("M!T");
    QCOMPARE(answer(), QByteArray("YC"));
    QCOMPARE(answer(), QByteArray("C"));
    QCOMPARE(receiver().state(),
             QStringLiteral("takes the bootloader, 0 blocks so far, "
                            "230400 baud"));
}

void TestGpsReceiver::secondPieceOfAnAnswerWaitsForItsReader()
{
    QString error;
    QVERIFY(receiver().addFault({QStringLiteral("split-yc")}, &error));
    say("$RESET,hf0,hff\n");
    QTRY_VERIFY(!unit().journal().lines(QStringLiteral("receiver reset")).isEmpty());
    say("M!T");
    QTest::qWait(400); // in which the second piece and several requests would have come
    QCOMPARE(answer(), QByteArray("Y"));
    QVERIFY(answer().startsWith('C'));
}

void TestGpsReceiver::restartRunsTheFirmware()
{
    say("$RESET,hf0,hff\n");
    QTRY_COMPARE(receiver().state(), QStringLiteral("is in its ROM, 230400 baud"));
    unit().mcu().reboot();
    QCOMPARE(receiver().state(), QStringLiteral("runs GNSS 1.04.2, 230400 baud"));
}

void TestGpsReceiver::rebootMendsAHungUpLine()
{
    QString error;
    QVERIFY(receiver().addFault({QStringLiteral("hangup"), QStringLiteral("product")}, &error));
    say("$PDTINFO\r\n");
    QTRY_COMPARE(receiver().state(), QStringLiteral("hung up, 230400 baud"));
    QCOMPARE(answer(), QByteArray());

    receiver().clearFaults();
    unit().mcu().reboot();
    m_line->open();
    tellsItsProduct();
}

void TestGpsReceiver::unknownFault()
{
    QString error;
    QVERIFY(!receiver().addFault({QStringLiteral("cold")}, &error));
    QCOMPARE(error, QStringLiteral("the receiver has no fault \"cold\""));
    QVERIFY(unit().journal().lines(QStringLiteral("receiver fault")).isEmpty());
}

void TestGpsReceiver::bytesAreJournalledOnDemand()
{
    const auto wire = [this] { return unit().journal().lines("wire "); };
    receiver().showWire(true);
    say("$PDTINFO\r\n");
    QCOMPARE(answer(), QByteArray("$PDTINFO,LODESTAR,GNSS 1.04.2\r\n"));
    QCOMPARE(wire(),
             QStringList({"wire to receiver 24 50 44 54 49 4E 46 4F 0D 0A",
                          "wire from receiver 24 50 44 54 49 4E 46 4F 2C 4C 4F 44 45 53 54 "
                          "41 52 2C 47 4E 53 53 20 31 2E 30 34 2E 32 0D 0A"}));
    // Long ones are cut.
    say(QByteArray(33, 'x'));
    QTRY_COMPARE(wire().size(), 4);
    QCOMPARE(wire().at(2), "wire to receiver" + QString(" 78").repeated(32));
    QCOMPARE(wire().at(3), QString("wire to receiver 78"));
    receiver().showWire(false);
    say("\r\n$PDTINFO\r\n");
    QVERIFY(!answer().isEmpty());
    QCOMPARE(wire().size(), 4);
}

FACTORY_TEST_GUILESS_MAIN(TestGpsReceiver)
#include "tst_gpsreceiver.moc"
