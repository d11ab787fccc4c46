#include "gps/gpsserial.h"

#include "recordedsettings.h"
#include "stdoutcapture.h"
#include "testline.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

namespace
{

QString set(int actions, uint inputSpeed, uint outputSpeed)
{
    return QStringLiteral("set %1 %2 %3").arg(actions).arg(inputSpeed).arg(outputSpeed);
}

} // namespace

class TestGpsSerialSettings : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void setsTheLine_data();
    void setsTheLine();
    void settingFails_data();
    void settingFails();
    void firstApplyIsNotLookedAt();

    void portMayBeTheFirstDescriptor();
};

void TestGpsSerialSettings::cleanup()
{
    RecordedSettings::restart();
}

void TestGpsSerialSettings::setsTheLine_data()
{
    QTest::addColumn<uint>("speed");
    QTest::newRow("230400") << uint(B230400);
    QTest::newRow("115200") << uint(B115200);
    QTest::newRow("9600") << uint(B9600);
}

void TestGpsSerialSettings::setsTheLine()
{
    QFETCH(uint, speed);
    const TestLine line;
    termios options;
    tcgetattr(line.port(), &options);
    options.c_cflag |= PARENB | CSTOPB;
    options.c_lflag |= ICANON | ECHO;
    options.c_cc[VMIN] = 1;
    tcsetattr(line.port(), TCSANOW, &options);
    fcntl(line.port(), F_SETFL, O_NONBLOCK);

    RecordedSettings::restart();
    QCOMPARE(set_baudrate(line.port(), speed), 0);
    const QString get = QStringLiteral("get");
    const QString applied = set(TCSANOW, speed, speed);
    QCOMPARE(RecordedSettings::calls(), QStringList({get, get, applied, get, applied}));

    QVERIFY((fcntl(line.port(), F_GETFL) & O_NONBLOCK) == 0);
    tcgetattr(line.port(), &options);
    QCOMPARE(uint(cfgetospeed(&options)), speed);
    QCOMPARE(uint(cfgetispeed(&options)), speed);
    QCOMPARE(uint(options.c_cflag & (CSIZE | CSTOPB | PARENB)), uint(CS8));
    QCOMPARE(uint(options.c_lflag & (ICANON | ECHO | ISIG)), 0u);
    QCOMPARE(uint(options.c_oflag & OPOST), 0u);
}

void TestGpsSerialSettings::settingFails_data()
{
    QTest::addColumn<int>("get");
    QTest::addColumn<int>("set");
    QTest::addColumn<QByteArray>("output");
    QTest::newRow("first reading") << 1 << 0 << QByteArray("setup serial error!\n");
    QTest::newRow("last reading") << 3 << 0 << QByteArray("get options error!\n");
    QTest::newRow("last apply") << 0 << 2 << QByteArray("setup serial error!\n");
    QTest::newRow("flags") << -1 << 0 << QByteArray("fcntl failed!\n");
}

void TestGpsSerialSettings::settingFails()
{
    QFETCH(int, get);
    QFETCH(int, set);
    QFETCH(QByteArray, output);
    const TestLine line;
    const int port = get < 0 ? -1 : line.port();
    RecordedSettings::restart(qMax(0, get), set);
    const StdoutCapture actual;
    QCOMPARE(set_baudrate(port, B9600), -1);
    QCOMPARE(actual.text(), output);
}

void TestGpsSerialSettings::firstApplyIsNotLookedAt()
{
    const TestLine line;
    RecordedSettings::restart(0, 1);
    QCOMPARE(set_baudrate(line.port(), B9600), 0);
}

void TestGpsSerialSettings::portMayBeTheFirstDescriptor()
{
    const TestUnit unit;
    const int input = fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3);
    close(STDIN_FILENO);
    const int port = initial_serialPort();
    dup2(input, STDIN_FILENO);
    close(input);
    QCOMPARE(port, STDIN_FILENO);
}

FACTORY_TEST_MAIN(TestGpsSerialSettings)
#include "tst_gpsserial_settings.moc"
