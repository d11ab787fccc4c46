#include "receiverline.h"

#include "hardware/receiver/xmodemreceiver.h"

#include "support/testmain.h"

#include <QtTest>

using hardware::XmodemReceiver;
using Event = hardware::XmodemReceiver::Event;

class TestXmodemReceiver : public QObject
{
    Q_OBJECT

private slots:
    void crc();
    void takesBlocksInTheirOrder();
    void numbersWrap();
    void repeatedBlockIsKeptOnce();
    void wrongFrames_data();
    void wrongFrames();
    void otherBytesAreIgnored();
    void refusesOnPurpose();
    void ends();
};

namespace
{

QByteArray frame(int number, char filling)
{
    return xmodemFrame(number, QByteArray(XmodemReceiver::blockSize, filling));
}

/// What the last byte brings; no other one may bring anything.
Event taken(XmodemReceiver &receiver, const QByteArray &bytes)
{
    Event last = Event::Nothing;
    for (const char byte : bytes) {
        if (last != Event::Nothing) {
            qFatal("An answer came in the middle of a frame.");
        }
        last = receiver.take(byte);
    }
    return last;
}

} // namespace

void TestXmodemReceiver::crc()
{
    // The catalogue's check value of CRC-16/XMODEM.
    QCOMPARE(int(hardware::xmodemCrc("123456789", 9)), 0x31C3);
}

void TestXmodemReceiver::takesBlocksInTheirOrder()
{
    XmodemReceiver receiver;
    QVERIFY(!receiver.hasBegun());
    QCOMPARE(taken(receiver, frame(1, 'a')), Event::Accepted);
    QVERIFY(receiver.hasBegun());
    QCOMPARE(taken(receiver, frame(2, 'b')), Event::Accepted);
    QCOMPARE(receiver.block(), 2);
    QCOMPARE(receiver.data(), QByteArray(1024, 'a') + QByteArray(1024, 'b'));
}

void TestXmodemReceiver::numbersWrap()
{
    XmodemReceiver receiver;
    for (int block = 1; block <= 300; ++block) {
        QCOMPARE(taken(receiver, frame(block, char(block))), Event::Accepted);
    }
    QCOMPARE(receiver.block(), 300);
    QCOMPARE(taken(receiver, frame(300, char(300))), Event::Repeated);
}

void TestXmodemReceiver::repeatedBlockIsKeptOnce()
{
    XmodemReceiver receiver;
    taken(receiver, frame(1, 'a'));
    QCOMPARE(taken(receiver, frame(1, 'a')), Event::Repeated);
    QCOMPARE(receiver.data().size(), 1024);
}

void TestXmodemReceiver::wrongFrames_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");
    QByteArray complement = frame(2, 'b');
    complement[2] = char(complement.at(2) + 1);
    QTest::newRow("complement") << complement << QStringLiteral("has number 2 with complement 254");
    QByteArray crc = frame(2, 'b');
    crc[1028] = char(crc.at(1028) ^ 1);
    QTest::newRow("CRC") << crc << QStringLiteral("has a wrong CRC");
    QByteArray data = frame(2, 'b');
    data[500] = 'B';
    QTest::newRow("data") << data << QStringLiteral("has a wrong CRC");
    QTest::newRow("number") << frame(3, 'b') << QStringLiteral("has number 3 behind block 1");
}

void TestXmodemReceiver::wrongFrames()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, problem);
    XmodemReceiver receiver;
    taken(receiver, frame(1, 'a'));
    QCOMPARE(taken(receiver, bytes), Event::Refused);
    QCOMPARE(receiver.problem(), problem);
    QCOMPARE(taken(receiver, frame(2, 'b')), Event::Accepted);
    QCOMPARE(receiver.data(), QByteArray(1024, 'a') + QByteArray(1024, 'b'));
}

void TestXmodemReceiver::otherBytesAreIgnored()
{
    XmodemReceiver receiver;
    QCOMPARE(taken(receiver, QByteArray("M!TM!T2\r\x06\x15")), Event::Nothing);
    QVERIFY(!receiver.hasBegun());
    QCOMPARE(taken(receiver, frame(1, 'a')), Event::Accepted);
}

void TestXmodemReceiver::refusesOnPurpose()
{
    XmodemReceiver receiver;
    receiver.refuse({{2, 2}});
    QCOMPARE(taken(receiver, frame(1, 'a')), Event::Accepted);
    QCOMPARE(taken(receiver, frame(2, 'b')), Event::Refused);
    QCOMPARE(taken(receiver, frame(2, 'b')), Event::Refused);
    QCOMPARE(taken(receiver, frame(2, 'b')), Event::Accepted);
    QCOMPARE(receiver.data().size(), 2048);
}

void TestXmodemReceiver::ends()
{
    XmodemReceiver receiver;
    taken(receiver, frame(1, 0x04));
    QCOMPARE(receiver.take(0x04), Event::Ended);
}

FACTORY_TEST_GUILESS_MAIN(TestXmodemReceiver)
#include "tst_xmodemreceiver.moc"
