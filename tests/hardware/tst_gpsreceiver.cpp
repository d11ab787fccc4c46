#include "hardware/unit/unit.h"

#include "support/testmain.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

/// The receiver as whoever has its port open knows it. The whole upgrade is tested with the
/// upgrader.
class TestGpsReceiver : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

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
    void setSpeed(speed_t speed);
    void say(const QByteArray &text);
    QByteArray answer();
    hardware::GpsReceiver &receiver() { return m_unit->gpsReceiver(); }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<hardware::Unit> m_unit;
    int m_port = -1;
};

void TestGpsReceiver::init()
{
    m_folder.reset(new QTemporaryDir);
    m_unit.reset(new hardware::Unit(m_folder->filePath(QStringLiteral("unit")), 10.0));
    QString error;
    QVERIFY2(m_unit->open(&error), qPrintable(error));
    receiver().setServiceReading(false);
    const QString port = m_unit->folder().path(QStringLiteral("/dev/ttyS3"));
    m_port = open(QFile::encodeName(port).constData(), O_RDWR | O_NOCTTY);
    QVERIFY(m_port >= 0);
}

void TestGpsReceiver::cleanup()
{
    close(m_port);
    m_unit.reset();
    m_folder.reset();
}

void TestGpsReceiver::setSpeed(speed_t speed)
{
    termios options;
    tcgetattr(m_port, &options);
    cfsetospeed(&options, speed);
    cfsetispeed(&options, speed);
    tcsetattr(m_port, TCSANOW, &options);
    // Until the receiver has noticed.
    QTest::qWait(100);
}

void TestGpsReceiver::say(const QByteArray &text)
{
    QCOMPARE(write(m_port, text.constData(), size_t(text.size())), ssize_t(text.size()));
}

/// What comes within half a second; empty when nothing does.
QByteArray TestGpsReceiver::answer()
{
    pollfd port = {m_port, POLLIN, 0};
    char bytes[1024];
    if (poll(&port, 1, 500) <= 0) {
        return QByteArray();
    }
    const ssize_t count = read(m_port, bytes, sizeof bytes);
    return QByteArray(bytes, int(qMax<ssize_t>(0, count)));
}

void TestGpsReceiver::portLeadsToTheReceiver()
{
    QVERIFY(QFileInfo(m_unit->folder().path(QStringLiteral("/dev/ttyS3"))).isSymLink());
    QCOMPARE(receiver().state(), QStringLiteral("runs GNSS 1.04.2, 230400 baud"));
    termios options;
    tcgetattr(m_port, &options);
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
    setSpeed(B9600);
    say("\n");
    QTest::qWait(100);
    say("$PDTINFO\r\n");
    QCOMPARE(answer(), QByteArray());
}

void TestGpsReceiver::changesItsSpeed()
{
    say("$CFGPRT,1,0,115200,3,3\n");
    QTRY_COMPARE(receiver().state(), QStringLiteral("runs GNSS 1.04.2, 115200 baud"));
    setSpeed(B115200);
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
    QTRY_VERIFY(!m_unit->journal().lines(QStringLiteral("receiver reset")).isEmpty());
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
    QTRY_VERIFY(!m_unit->journal().lines(QStringLiteral("receiver reset")).isEmpty());
    say("M!T");
    QTest::qWait(400); // in which the second piece and several requests would have come
    QCOMPARE(answer(), QByteArray("Y"));
    QVERIFY(answer().startsWith('C'));
}

void TestGpsReceiver::restartRunsTheFirmware()
{
    say("$RESET,hf0,hff\n");
    QTRY_COMPARE(receiver().state(), QStringLiteral("is in its ROM, 230400 baud"));
    m_unit->mcu().reboot();
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
    m_unit->mcu().reboot();
    receiver().setServiceReading(false);
    close(m_port);
    const QString port = m_unit->folder().path(QStringLiteral("/dev/ttyS3"));
    m_port = open(QFile::encodeName(port).constData(), O_RDWR | O_NOCTTY);
    tellsItsProduct();
}

void TestGpsReceiver::unknownFault()
{
    QString error;
    QVERIFY(!receiver().addFault({QStringLiteral("cold")}, &error));
    QCOMPARE(error, QStringLiteral("the receiver has no fault \"cold\""));
    QVERIFY(m_unit->journal().lines(QStringLiteral("receiver fault")).isEmpty());
}

void TestGpsReceiver::bytesAreJournalledOnDemand()
{
    const auto wire = [this] { return m_unit->journal().lines("wire "); };
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
