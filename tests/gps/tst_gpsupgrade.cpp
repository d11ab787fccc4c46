#include "gps/gpsupgrade.h"

#include "gps/gpsserial.h"
#include "recordedsleeps.h"
#include "testline.h"
#include "upgradetest.h"

#include "support/testmain.h"

#include <QtTest>

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <thread>

class TestGpsUpgrade : public QObject, private UpgradeTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void transfersWaitWithSelect();
    void secondUpgradeFollows();
    void bytesSpeedsAndPauses();
    void saysWhatHappens();
    void filesThatAreGone_data();
    void filesThatAreGone();
    void portCannotBeOpened();
    void withYcTheSeparateWaitForCIsSkipped();
    void repliesAreNoFormatStrings();
};

namespace
{

/// A receiver that goes by a list: it takes down what comes.
class ListedReceiver
{
public:
    explicit ListedReceiver(const TestLine &line)
        : m_line(line)
    {
    }

    QByteArray hear(int count) const { return m_line.hear(count); }

    /// Once the sender has read what was said before: else it would read this along with that.
    void requestFrame() const
    {
        int unread = 1;
        for (int time = 0; time < 100 && unread > 0; ++time) {
            usleep(100000);
            ioctl(m_line.port(), FIONREAD, &unread);
        }
        m_line.say("C");
    }

    /// What comes before a frame, which it takes as well.
    QByteArray hearUntilFrame() const
    {
        QByteArray before;
        for (QByteArray byte = m_line.hear(1); byte != "\x02" && !byte.isEmpty();
             byte = m_line.hear(1)) {
            before += byte;
        }
        m_line.hear(1028);
        return before;
    }

    /// The rest of a transfer of one block.
    void acceptBlock() const
    {
        m_line.say("\x06");
        m_line.hear(1);
        m_line.say("\x06");
    }

    speed_t speed() const
    {
        termios options;
        tcgetattr(m_line.port(), &options);
        return cfgetospeed(&options);
    }

private:
    const TestLine &m_line;
};

/// Nothing but that text, at least so many times.
bool isRepeated(const QByteArray &bytes, const QByteArray &text, int least)
{
    const int times = bytes.size() / text.size();
    return times >= least && bytes == text.repeated(times);
}

} // namespace

void TestGpsUpgrade::init()
{
    switchOn();
}

void TestGpsUpgrade::cleanup()
{
    switchOff();
}

void TestGpsUpgrade::transfersWaitWithSelect()
{
    use_select_wait = 0;
    const Conversation outcome = upgrade();
    QVERIFY2(outcome.result == 0, outcome.output.constData());
    QCOMPARE(use_select_wait, 1);
}

void TestGpsUpgrade::secondUpgradeFollows()
{
    QCOMPARE(upgrade().result, 0);
    // The unit restarts: its service finds the receiver and sets its speed.
    m_unit->unit().mcu().reboot();
    m_unit->unit().gpsReceiver().setServiceReading(false);
    make(firmware, "valid", "GNSS 10.0", 100);
    QCOMPARE(upgrade().result, 0);
    QCOMPARE(m_unit->unit().versions().gps(), QStringLiteral("GNSS 10.0"));
}

void TestGpsUpgrade::bytesSpeedsAndPauses()
{
    switchOn(1);
    make(bootloader, "valid", "boot 7", 500);
    make(firmware, "valid", "GNSS 9.8.7", 600);
    const TestLine line;
    const QString port = m_unit->path(QStringLiteral("/dev/ttyS3"));
    QVERIFY(QFile::remove(port) && QFile::link(QFile::decodeName(line.name()), port));

    const ListedReceiver receiver(line);
    QByteArray configure, query, leave, reset, enter, select, end;
    std::thread thread([&] {
        line.say("junk"); // It comes before the speeds are equal, and is thrown away.
        configure = receiver.hear(23);
        query = receiver.hear(10);
        line.say("product\r\n");
        leave = receiver.hear(9);
        reset = receiver.hear(30);
        enter = receiver.hear(6);
        line.say("YC");
        receiver.requestFrame();
        enter += receiver.hearUntilFrame();
        receiver.acceptBlock();
        line.say("boot>");
        select = receiver.hear(4);
        line.say("begin to update flash from uart\r\n");
        receiver.requestFrame();
        select += receiver.hearUntilFrame();
        receiver.acceptBlock();
        end = receiver.hear(9);
        for (int time = 0; time < 500 && receiver.speed() != B9600; ++time) {
            usleep(10000);
        }
        line.say("$GNRMC,\r\n");
    });
    // In full length: the receiver is to be in time with what it says.
    QVector<speed_t> speeds;
    const RecordedSleeps sleeps(1, [&] { speeds.append(receiver.speed()); });
    const Conversation outcome = upgrade();
    line.portIsThrough();
    thread.join();

    QVERIFY2(outcome.result == 0, outcome.output.constData());
    QVERIFY2(outcome.output.startsWith("product\r\nrByte = 9...\n"), outcome.output.constData());
    QCOMPARE(configure, QByteArray("$CFGPRT,1,0,115200,3,3\n"));
    QCOMPARE(query, QByteArray("$PDTINFO\r\n"));
    QCOMPARE(leave, QByteArray("5\r\n5\r\n5\r\n"));
    QCOMPARE(reset, QByteArray("$RESET,hf0,hff\n$RESET,hf0,hff\n"));
    QVERIFY2(isRepeated(enter, "M!T", 2), enter.constData());
    // Once ahead of the rounds, and once in each.
    QVERIFY2(isRepeated(select, "2\r", 2), select.constData());
    QCOMPARE(end, QByteArray("5\r\n5\r\n5\r\n"));
    const QVector<qint64> transfer = {10000, 10000}; // ahead of "C" and of the block's answer
    QCOMPARE(sleeps.all(),
             QVector<qint64>({5000, 200000, 200000, 2000000, 50000, 50000, 50000, 50000}) + transfer
                 + QVector<qint64>({50000, 100000}) + transfer
                 + QVector<qint64>({200000, 50000, 50000, 50000, 50000}));
    // Ahead of the line's setting and behind it, and behind the last bytes for the boot loader.
    QCOMPARE(speeds.mid(0, 2), QVector<speed_t>(2, B230400));
    QCOMPARE(speeds.mid(2, sleeps.all().size() - 3),
             QVector<speed_t>(sleeps.all().size() - 3, B115200));
    QCOMPARE(speeds.mid(sleeps.all().size() - 1), QVector<speed_t>(1, B9600));
}

void TestGpsUpgrade::saysWhatHappens()
{
    switchOn(1);
    QByteArray output = upgrade().output;
    // What the receiver sends before the port has followed to its new speed is unreadable.
    const QByteArray success = "Download firmware success\n";
    const int noise = output.indexOf(success) + success.size();
    output.remove(noise, output.indexOf("$GNGGA") - noise);
    // The receiver's first request may come together with its answer to the choice.
    output.replace("from uart\r\nC[", "from uart\r\n[");
    const QByteArray sent = "Ready to send the file:%1\n"
                            "Waiting for signal C/NAK!\n"
                            "The signal NAK: 43 ok!!!\n"
                            "begining to Send file %1...\n";
    QCOMPARE(QString::fromLatin1(output),
             QString::fromLatin1(
                 QByteArray("$PDTINFO,LODESTAR,GNSS 1.04.2\r\n"
                            "rByte = 31...\n"
                            "waiting for YC, timeout is 10 s\n"
                            // The first two bytes are the product reply's.
                            "$PYC\n"
                            "download bootloader...\n"
                            "bootloader: %1\n"
                            "[%1]\n")
                     .replace("%1", bootloader)
                 + QByteArray(sent).replace("%1", bootloader)
                 + ".Start filling the last frame!\n"
                   ".Complete ACK\n"
                   "Send file successful!!!\n"
                   "\r\nLODESTAR boot loader\r\n 1: run\r\n 2: update flash\r\nboot> "
                   "download bootloader success\n"
                   "Download firmware...\n"
                   "2\r\nbegin to update flash from uart\r\n"
                   "["
                 + firmware + "]\n" + QByteArray(sent).replace("%1", firmware)
                 + "..Start filling the last frame!\n"
                   ".Complete ACK\n"
                   "Send file successful!!!\n"
                   "Download firmware success\n"
                   "$GNGGA,120000.00,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*59\r\n"
                   "$GNRMC,120000.00,A,4807.038,N,01131.000,E,0.02,31.66,230394,,,A*4E\r\n"
                   "\n===== THE UPGRADE IS SUCCESSFUL, reseting=====\n"));
}

void TestGpsUpgrade::filesThatAreGone_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("end");
    const QByteArray missing =
        "can't open this file or not exist!(errno=2:No such file or directory) \n";
    QTest::newRow("boot loader") << QString::fromLatin1(bootloader) << -3
                                 << missing + "xmodem error!\n";
    QTest::newRow("firmware") << QString::fromLatin1(firmware) << -4
                              << missing + "xmodem error! upgrade failed!\n";
}

void TestGpsUpgrade::filesThatAreGone()
{
    QFETCH(QString, file);
    QFETCH(int, result);
    QFETCH(QByteArray, end);
    QVERIFY(QFile::remove(m_unit->path(file)));
    const Conversation outcome = upgrade();
    QCOMPARE(outcome.result, result);
    QVERIFY2(outcome.output.endsWith(end), outcome.output.constData());
    QCOMPARE(outcome.filesLeftOpen, 0);
}

void TestGpsUpgrade::portCannotBeOpened()
{
    QVERIFY(QFile::remove(m_unit->path(QStringLiteral("/dev/ttyS3"))));
    const Conversation outcome = upgrade();
    QCOMPARE(outcome.result, -5);
    QCOMPARE(outcome.output,
             QByteArray("Can't open serial port!(errno=2:No such file or directory) \n"
                        "Can't open COM\n"));
}

void TestGpsUpgrade::withYcTheSeparateWaitForCIsSkipped()
{
    const QByteArray found = "###read xmodem start character 'C'.\n";
    QVERIFY(!upgrade().output.contains(found));
    m_unit->unit().mcu().reboot();
    m_unit->unit().gpsReceiver().setServiceReading(false);
    fault(QStringLiteral("no-yc"));
    const Conversation outcome = upgrade();
    QVERIFY2(outcome.output.contains(QByteArray(timeOut) + '\n' + found),
             outcome.output.constData());
    QCOMPARE(outcome.result, 0);
}

void TestGpsUpgrade::repliesAreNoFormatStrings()
{
    m_unit->unit().versions().setGps(QStringLiteral("100%s%n%d"));
    const Conversation outcome = upgrade();
    QCOMPARE(outcome.result, 0);
    QVERIFY(outcome.output.startsWith("$PDTINFO,LODESTAR,100%s%n%d\r\nrByte = 29...\n"));
}

FACTORY_TEST_MAIN(TestGpsUpgrade)
#include "tst_gpsupgrade.moc"
