#include "gps/gpsupgrade.h"

#include "conversation.h"
#include "gps/gpsserial.h"
#include "recordedsleeps.h"
#include "testline.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <sched.h>
#include <termios.h>
#include <unistd.h>

#include <thread>

class TestGpsUpgrade : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void upgrades();
    void secondUpgradeFollows();
    void bytesSpeedsAndPauses();
    void saysWhatHappens();
    void returns_data();
    void returns();
    void filesThatAreGone_data();
    void filesThatAreGone();
    void portCannotBeOpened();
    void lostLineEndsTheProcess_data();
    void lostLineEndsTheProcess();
    void withYcTheSeparateWaitForCIsSkipped();
    void splitYcIsFound();
    void zeroBytesDoNotHideYc();
    void repliesAreNoFormatStrings();
    void serviceThatWasNotStoppedTakesTheAnswers();

    void checks();
    void checksSayWhatTheyFind_data();
    void checksSayWhatTheyFind();
    void checksOfFilesThatAreGone();

private:
    void fault(const QString &words);
    Conversation upgrade();
    Conversation check(const QByteArray &bootloader, const QByteArray &firmware);
    QString expectedCheck() const;
    void make(const QByteArray &file, const char *kind, const char *version, int size);

    QScopedPointer<TestUnit> m_unit;
};

namespace
{

const double factor = 10;
const char bootloader[] = "/media/flash/gps_bootloader.pkg";
const char firmware[] = "/media/flash/gps_firmware.pkg";
const char timeOut[] = "\ntimeout!!!\n";

/// A receiver that goes by a list: it takes down what comes, and at which speed of the port.
class ListedReceiver
{
public:
    struct Heard
    {
        QByteArray bytes;
        speed_t speed;
    };

    explicit ListedReceiver(const TestLine &line)
        : m_line(line)
    {
    }

    Heard hear(int count) const
    {
        const QByteArray bytes = m_line.hear(count);
        return {bytes, speed()};
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
    use_select_wait = 0;
    m_unit.reset(new TestUnit(factor));
    m_unit->unit().gpsReceiver().setServiceReading(false);
    make(bootloader, "valid", "boot 7", 1500);
    make(firmware, "valid", "GNSS 9.8.7", 2600);
}

void TestGpsUpgrade::cleanup()
{
    m_unit.reset();
}

void TestGpsUpgrade::make(const QByteArray &file, const char *kind, const char *version, int size)
{
    const QString path = m_unit->path(QString::fromLatin1(file));
    QCOMPARE(QProcess::execute(QStringLiteral(MAKE_GPS_PACKAGE),
                               {QString::fromLatin1(kind), path, QString::fromLatin1(version),
                                QString::number(size)}),
             0);
}

void TestGpsUpgrade::fault(const QString &words)
{
    QString error;
    QVERIFY2(m_unit->unit().gpsReceiver().addFault(words.split(QLatin1Char(' ')), &error),
             qPrintable(error));
}

Conversation TestGpsUpgrade::upgrade()
{
    return converse([] { return upgradeStart(bootloader, firmware); });
}

/// On a thread that keeps the real-time priority for itself.
Conversation TestGpsUpgrade::check(const QByteArray &bootloaderFile, const QByteArray &firmwareFile)
{
    return converse([&] {
        int result = 0;
        std::thread worker([&] {
            result = checkGpsUpdateFile(bootloaderFile.constData(), firmwareFile.constData());
        });
        worker.join();
        return result;
    });
}

/// What the check is to print, as somebody else's CRC and sum have it.
QString TestGpsUpgrade::expectedCheck() const
{
    QStringList arguments(QStringLiteral(EXPECTED_CHECK));
    for (const char *file : {bootloader, firmware}) {
        const QString name = QString::fromLatin1(file);
        arguments << m_unit->path(name) << name;
    }
    QProcess script;
    script.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    script.start(QStringLiteral("python3"), arguments);
    script.waitForFinished();
    return QString::fromUtf8(script.readAllStandardOutput());
}

void TestGpsUpgrade::upgrades()
{
    const Conversation outcome = upgrade();
    QVERIFY2(outcome.result == 0, outcome.output.constData());
    QCOMPARE(outcome.filesLeftOpen, 0);
    QCOMPARE(use_select_wait, 1);
    for (const char *name : {"bootloader.pkg", "firmware.pkg"}) {
        const QString file = QString::fromLatin1(name);
        QCOMPARE(readFile(m_unit->path(QStringLiteral("/receiver/") + file)),
                 readFile(m_unit->path(QStringLiteral("/media/flash/gps_") + file)));
    }
    QCOMPARE(m_unit->unit().versions().gps(), QStringLiteral("GNSS 9.8.7"));
    // Without the "5", of which the new firmware may hear a late one, or what is left of it.
    QCOMPARE(m_unit->journal(QStringLiteral("/^receiver (?!heard [^$])/")),
             QStringList({
                 QStringLiteral("receiver heard $CFGPRT,1,0,115200,3,3"),
                 QStringLiteral("receiver heard $PDTINFO"),
                 QStringLiteral("receiver heard $RESET,hf0,hff"),
                 QStringLiteral("receiver reset"),
                 QStringLiteral("receiver ROM loader"),
                 QStringLiteral("receiver bootloader received, 2 blocks, 1532 bytes"),
                 QStringLiteral("receiver menu 2"),
                 QStringLiteral("receiver firmware received, 3 blocks, 2632 bytes"),
                 QStringLiteral("receiver runs GNSS 9.8.7"),
             }));
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
    m_unit.reset(); // Its gate scales time.
    m_unit.reset(new TestUnit);
    make(bootloader, "valid", "boot 7", 500);
    make(firmware, "valid", "GNSS 9.8.7", 600);
    const TestLine line;
    const QString port = m_unit->path(QStringLiteral("/dev/ttyS3"));
    QVERIFY(QFile::remove(port) && QFile::link(QFile::decodeName(line.name()), port));

    const ListedReceiver receiver(line);
    ListedReceiver::Heard configure, query, leave, reset, end;
    QByteArray enter, select;
    std::thread thread([&] {
        configure = receiver.hear(23);
        line.say("junk"); // It comes before the speeds are equal, and is thrown away.
        query = receiver.hear(10);
        line.say("product\r\n");
        leave = receiver.hear(9);
        reset = receiver.hear(30);
        enter = receiver.hear(6).bytes;
        line.say("YC");
        usleep(100000);
        line.say("C");
        enter += receiver.hearUntilFrame();
        receiver.acceptBlock();
        line.say("boot>");
        select = receiver.hear(4).bytes;
        line.say("begin to update flash from uart\r\n");
        usleep(300000);
        line.say("C");
        select += receiver.hearUntilFrame();
        receiver.acceptBlock();
        end = receiver.hear(9);
        for (int time = 0; time < 500 && receiver.speed() != B9600; ++time) {
            usleep(10000);
        }
        line.say("$GNRMC,\r\n");
    });
    const RecordedSleeps sleeps;
    const Conversation outcome = upgrade();
    line.portIsThrough();
    thread.join();

    QVERIFY2(outcome.result == 0, outcome.output.constData());
    QVERIFY2(outcome.output.startsWith("product\r\nrByte = 9...\n"), outcome.output.constData());
    QCOMPARE(configure.bytes, QByteArray("$CFGPRT,1,0,115200,3,3\n"));
    QCOMPARE(configure.speed, speed_t(B230400));
    QCOMPARE(query.bytes, QByteArray("$PDTINFO\r\n"));
    QCOMPARE(query.speed, speed_t(B115200));
    QCOMPARE(leave.bytes, QByteArray("5\r\n5\r\n5\r\n"));
    QCOMPARE(reset.bytes, QByteArray("$RESET,hf0,hff\n$RESET,hf0,hff\n"));
    QVERIFY2(isRepeated(enter, "M!T", 2), enter.constData());
    // Once ahead of the rounds, and once in each.
    QVERIFY2(isRepeated(select, "2\r", 2), select.constData());
    QCOMPARE(end.bytes, QByteArray("5\r\n5\r\n5\r\n"));
    QCOMPARE(end.speed, speed_t(B115200));
    const QVector<qint64> transfer = {10000, 10000}; // ahead of "C" and of the block's answer
    QCOMPARE(sleeps.all(),
             QVector<qint64>({5000, 200000, 200000, 2000000, 50000, 50000, 50000, 50000}) + transfer
                 + QVector<qint64>({50000, 100000}) + transfer
                 + QVector<qint64>({200000, 50000, 50000, 50000, 50000}));
}

void TestGpsUpgrade::saysWhatHappens()
{
    QByteArray output = upgrade().output;
    // What the receiver sends before the port has followed to its new speed is unreadable.
    const QByteArray success = "Download firmware success\n";
    const int noise = output.indexOf(success) + success.size();
    output.remove(noise, output.indexOf("$GNGGA") - noise);
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

void TestGpsUpgrade::returns_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("end");
    const auto row = [](const char *words, int result, const QByteArray &end) {
        QTest::newRow(words) << QString::fromLatin1(words) << result << end;
    };
    const QByteArray noBootloader = QByteArray(timeOut) + "xmodem error!\n";
    const QByteArray noFirmware = QByteArray(timeOut) + "xmodem error! upgrade failed!\n";
    const QByteArray success = "\n===== THE UPGRADE IS SUCCESSFUL, reseting=====\n";

    row("silence product", 0, success);
    row("silence configure", -3, QByteArray(timeOut) + '\n' + timeOut);
    row("silence loader", -3, QByteArray(timeOut) + '\n' + timeOut);
    row("silence bootloader", -3, noBootloader);
    row("silence bootloader 2", -3, noBootloader);
    row("silence prompt", -3, QByteArray("Send file successful!!!\n") + timeOut);
    row("silence menu", -4, QByteArray("Download firmware...\n") + timeOut);
    row("silence firmware", -4, noFirmware);
    row("silence firmware 1", -4, noFirmware);
    row("silence sentences", -4, timeOut);

    row("no-rmc", -4, timeOut);
    row("no-yc", 0, success);
    row("split-yc", 0, success);
    row("split-prompt", -3, timeOut);
    row("noise 3", 0, success);
    row("late-eot 12000", 0, success);
    row("nak 3 2", 0, success);
    row("nak 11 1", 0, success);
    row("nak 12 1", -3, QByteArray("Retry too many times,Quit!\n") + timeOut);
    // Only the firmware has a third block; its sender gives up, and no firmware starts.
    row("nak 12 3", -4, timeOut);
    row("garbage 1", -3, "ACK Error!\n0x7E\nFatal Error! 126\nxmodem error!\n");
    row("garbage 3", -4, "ACK Error!\n0x7E\nFatal Error! 126\nxmodem error! upgrade failed!\n");
}

void TestGpsUpgrade::returns()
{
    QFETCH(QString, fault);
    QFETCH(int, result);
    QFETCH(QByteArray, end);
    this->fault(fault);
    const Conversation outcome = upgrade();
    QVERIFY2(outcome.result == result, outcome.output.constData());
    QVERIFY2(outcome.output.endsWith(end), outcome.output.constData());
    QCOMPARE(outcome.filesLeftOpen, fault.startsWith(QLatin1String("garbage")) ? 1 : 0);
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

void TestGpsUpgrade::lostLineEndsTheProcess_data()
{
    QTest::addColumn<QString>("fault");
    for (const char *stage : {"product", "loader", "bootloader", "bootloader 2", "prompt", "menu",
                              "firmware", "firmware 1", "sentences", "eot"}) {
        QTest::newRow(stage) << QStringLiteral("hangup ") + QString::fromLatin1(stage);
    }
}

void TestGpsUpgrade::lostLineEndsTheProcess()
{
    QFETCH(QString, fault);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--upgrade"), fault});
    QVERIFY(process.waitForFinished());
    const QByteArray output = process.readAllStandardOutput();
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QVERIFY2(process.exitCode() == 251, output.constData());
    QVERIFY2(output.endsWith("please check serial device.\n"), output.constData());
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

void TestGpsUpgrade::splitYcIsFound()
{
    fault(QStringLiteral("split-yc"));
    const Conversation outcome = upgrade();
    QCOMPARE(outcome.result, 0);
    // The two bytes in front of each reading are shown with it: "$P" and then "PY".
    QVERIFY2(outcome.output.contains("10 s\n$PYPYC\n"), outcome.output.constData());
}

void TestGpsUpgrade::zeroBytesDoNotHideYc()
{
    // No product reply: the two bytes in front of the first reading are zero.
    fault(QStringLiteral("silence product"));
    const Conversation outcome = upgrade();
    QCOMPARE(outcome.result, 0);
    QVERIFY2(outcome.output.startsWith("rByte = 0...\nwaiting for YC, timeout is 10 s\n"
                                       "\\01\\01YC\ndownload"),
             outcome.output.constData());
}

void TestGpsUpgrade::repliesAreNoFormatStrings()
{
    m_unit->unit().versions().setGps(QStringLiteral("100%s%n%d"));
    const Conversation outcome = upgrade();
    QCOMPARE(outcome.result, 0);
    QVERIFY(outcome.output.startsWith("$PDTINFO,LODESTAR,100%s%n%d\r\nrByte = 29...\n"));
}

void TestGpsUpgrade::serviceThatWasNotStoppedTakesTheAnswers()
{
    m_unit->unit().gpsReceiver().setServiceReading(true);
    QCOMPARE(upgrade().result, -3);
}

void TestGpsUpgrade::checks()
{
    make(firmware, "sections", "GNSS 9.8.7", 2600);
    const Conversation outcome = check(bootloader, firmware);
    QCOMPARE(outcome.result, 0);
    const QByteArray measured = "check select() for 100us: ";
    const int end = outcome.output.indexOf(measured);
    QVERIFY2(end >= 0, outcome.output.constData());
    QCOMPARE(QString::fromUtf8(outcome.output.left(end)), expectedCheck());
    const QRegularExpression times(QStringLiteral("^min \\d+, max \\d+\n$"));
    const QByteArray rest = outcome.output.mid(end + measured.size());
    QVERIFY2(times.match(QString::fromUtf8(rest)).hasMatch(), rest.constData());
    // The caller's own priority is what it was.
    QCOMPARE(sched_getscheduler(0), SCHED_OTHER);
}

void TestGpsUpgrade::checksSayWhatTheyFind_data()
{
    QTest::addColumn<QByteArray>("spoiltFile");
    QTest::addColumn<QByteArray>("kind");
    for (const char *kind : {"bad-sum", "bad-header-crc", "bad-second-section", "size-0"}) {
        QTest::addRow("boot loader, %s", kind) << QByteArray(bootloader) << QByteArray(kind);
        QTest::addRow("firmware, %s", kind) << QByteArray(firmware) << QByteArray(kind);
    }
}

void TestGpsUpgrade::checksSayWhatTheyFind()
{
    QFETCH(QByteArray, spoiltFile);
    QFETCH(QByteArray, kind);
    make(spoiltFile, kind.constData(), "", 0);
    use_select_wait = 7;
    const Conversation outcome = check(bootloader, firmware);
    QCOMPARE(outcome.result, -2);
    QCOMPARE(QString::fromUtf8(outcome.output), expectedCheck());
    // select() was not measured.
    QCOMPARE(use_select_wait, 7);
}

void TestGpsUpgrade::checksOfFilesThatAreGone()
{
    QVERIFY(QFile::remove(m_unit->path(QString::fromLatin1(firmware))));
    const Conversation outcome = check(bootloader, firmware);
    QCOMPARE(outcome.result, -2);
    const QByteArray missing =
        "\n can't open this file or not exist!(errno=2:No such file or directory) \n";
    QVERIFY2(outcome.output.endsWith("checking file: " + QByteArray(firmware) + '\n' + missing
                                     + missing + "firmware file error!\n"),
             outcome.output.constData());
}

namespace
{

/// What the child process does: an upgrade of a unit of its own.
int upgradeWith(const QString &fault)
{
    TestUnit unit(factor);
    QString error;
    unit.unit().gpsReceiver().setServiceReading(false);
    if (!unit.unit().gpsReceiver().addFault(fault.split(QLatin1Char(' ')), &error)) {
        qFatal("%s", qPrintable(error));
    }
    writeFile(unit.path(QString::fromLatin1(bootloader)), QByteArray(2000, 'b'));
    writeFile(unit.path(QString::fromLatin1(firmware)), QByteArray(3000, 'f'));
    // As the check of the files leaves it; by polling, a line that is gone has just nothing to
    // read.
    use_select_wait = 1;
    return upgradeStart(bootloader, firmware);
}

} // namespace

int main(int argc, char *argv[])
{
    prepareScreen();
    QApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--upgrade") == 0) {
        return upgradeWith(QString::fromLatin1(argv[2]));
    }
    TestGpsUpgrade test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_gpsupgrade.moc"
