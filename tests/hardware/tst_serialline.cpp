#include "receiverline.h"

#include "hardware/receiver/serialline.h"
#include "hardware/unit/clock.h"
#include "support/testmain.h"

#include <QElapsedTimer>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

using hardware::Clock;
using hardware::SerialLine;

class TestSerialLine : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void carriesBytesBothWays();
    void followsThePortsSpeed();
    void otherSpeedSpoilsBytes();
    void bytesSentJustBeforeAChangeOfSpeedAreHeard();
    void bytesTakeTheirTime_data();
    void bytesTakeTheirTime();
    void hungUpLineEnds();
    void opensAnew();
    void discards();

private:
    const Clock m_clock{1.0};
    QScopedPointer<SerialLine> m_line;
    int m_port = -1;
};

namespace
{
const char text[] = "0123456789";
}

void TestSerialLine::init()
{
    QString error;
    m_line.reset(new SerialLine(m_clock));
    QVERIFY2(m_line->open(&error), qPrintable(error));
    m_line->setPortSpeed(115200);
    m_port = open(QFile::encodeName(m_line->port()).constData(), O_RDWR | O_NOCTTY);
    QVERIFY(m_port >= 0);
}

void TestSerialLine::cleanup()
{
    close(m_port);
    m_line.reset();
}

void TestSerialLine::carriesBytesBothWays()
{
    QCOMPARE(write(m_port, text, 10), ssize_t(10));
    QCOMPARE(m_line->hear(115200), QByteArray(text));
    m_line->say("answer", 115200);
    char bytes[32];
    QCOMPARE(read(m_port, bytes, sizeof bytes), ssize_t(6));
    QCOMPARE(QByteArray(bytes, 6), QByteArray("answer"));
}

void TestSerialLine::followsThePortsSpeed()
{
    QCOMPARE(m_line->portSpeed(), 115200);
    setPortSpeed(m_port, B9600);
    QCOMPARE(m_line->portSpeed(), 9600);
    setPortSpeed(m_port, B230400);
    QCOMPARE(m_line->portSpeed(), 230400);
    setPortSpeed(m_port, B50);
    QCOMPARE(m_line->portSpeed(), 0);
}

void TestSerialLine::otherSpeedSpoilsBytes()
{
    QCOMPARE(write(m_port, text, 10), ssize_t(10));
    const QByteArray heard = m_line->hear(9600);
    QCOMPARE(heard.size(), 10);
    for (const char byte : heard) {
        QVERIFY(uchar(byte) >= 0x80);
    }
    m_line->say(text, 230400);
    char bytes[32];
    QCOMPARE(read(m_port, bytes, sizeof bytes), ssize_t(10));
    QVERIFY(QByteArray(bytes, 10) != text);
}

void TestSerialLine::bytesSentJustBeforeAChangeOfSpeedAreHeard()
{
    m_line->watchSpeed();
    QCOMPARE(write(m_port, text, 10), ssize_t(10));
    setPortSpeed(m_port, B9600);
    QCOMPARE(m_line->hear(115200), QByteArray(text));
    // From here on the former speed is the past.
    QCOMPARE(write(m_port, text, 10), ssize_t(10));
    QVERIFY(m_line->hear(115200) != text);
}

void TestSerialLine::bytesTakeTheirTime_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("at the host's pace") << 1.0;
    QTest::newRow("ten times as fast") << 10.0;
}

void TestSerialLine::bytesTakeTheirTime()
{
    QFETCH(double, factor);
    const Clock clock(factor);
    SerialLine line(clock);
    QString error;
    QVERIFY(line.open(&error));
    line.setPortSpeed(9600);
    const int port = open(QFile::encodeName(line.port()).constData(), O_RDWR | O_NOCTTY);
    // 10 bits each: 500 bytes take 520.8 ms at 9600 baud, and as long to answer.
    QElapsedTimer elapsed;
    const QByteArray question(500, 'x');
    elapsed.start();
    QCOMPARE(write(port, question.constData(), size_t(question.size())), ssize_t(500));
    int heard = 0;
    while (heard < 500) {
        heard += line.hear(9600).size();
    }
    QVERIFY2(elapsed.nsecsElapsed() / 1e6 * factor >= 520, qPrintable(QString::number(heard)));
    line.say(QByteArray(500, 'y'), 9600);
    QVERIFY(elapsed.nsecsElapsed() / 1e6 * factor >= 1041);
    close(port);
}

void TestSerialLine::hungUpLineEnds()
{
    m_line->hangUp();
    QVERIFY(!m_line->isOpen());
    char byte;
    QCOMPARE(read(m_port, &byte, 1), ssize_t(0));
    m_line->say(text, 115200);
    QCOMPARE(m_line->hear(115200), QByteArray());
    QCOMPARE(m_line->descriptor(), -1);
}

void TestSerialLine::opensAnew()
{
    m_line->hangUp();
    QString error;
    QVERIFY(m_line->open(&error));
    QVERIFY(m_line->isOpen());
    QVERIFY(!m_line->port().isEmpty());
}

void TestSerialLine::discards()
{
    m_line->say(text, 115200);
    m_line->discardUnread();
    m_line->say("!", 115200);
    char bytes[32];
    QCOMPARE(read(m_port, bytes, sizeof bytes), ssize_t(1));
    QCOMPARE(bytes[0], '!');
}

FACTORY_TEST_GUILESS_MAIN(TestSerialLine)
#include "tst_serialline.moc"
