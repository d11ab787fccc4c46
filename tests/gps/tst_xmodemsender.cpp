#include "gps/xmodemsender.h"

#include "conversation.h"
#include "gps/gpspackage.h"
#include "gps/gpsserial.h"
#include "recordedsleeps.h"
#include "stdoutcapture.h"
#include "testline.h"
#include "waitslack.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

#include <unistd.h>

#include <functional>
#include <thread>

class TestXmodemSender : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void frame();
    void finalBlockOf1024BytesIsSentWithoutPaddingFollowedByEot();
    void blockNumbersWrapFrom255To0();
    void nakBeforeTheFirstCIsIgnored();
    void aBlockIsSentAgain();
    void twelfthNakInARowEndsWithSuccess();
    void retriesAreCountedForEachBlock();
    void requestInTheMiddleGoesOn();
    void otherByteIsFatalAndLeavesTheFileOpen();
    void eotIsSentUntilAcknowledged_data();
    void eotIsSentUntilAcknowledged();
    void missingFile();
    void timesOut_data();
    void timesOut();
    void pausesBeforeItReadsAnAnswer();

private:
    using Receiver = std::function<void(const TestLine &line)>;

    Conversation send(int size, const Receiver &receiver);
    QByteArray content(int size) const;

    QTemporaryDir m_folder;
    QScopedPointer<TestUnit> m_unit;
    int m_port = -1;
};

namespace
{

const int frameSize = 1029;
const char ack[] = "\x06";
const char nak[] = "\x15";
const char eot[] = "\x04";
const char timeOut[] = "\ntimeout!!!\n";

/// Acknowledges so many frames, which it returns one after the other, and the EOT.
QByteArray takeAll(const TestLine &line, int frames)
{
    QByteArray heard;
    line.say("C");
    for (int frame = 0; frame < frames; ++frame) {
        heard += line.hear(frameSize);
        line.say(ack);
    }
    heard += line.hear(1);
    line.say(ack);
    return heard;
}

QByteArray blocksOf(const QByteArray &frames)
{
    QByteArray data;
    for (int offset = 0; offset + frameSize <= frames.size(); offset += frameSize) {
        data += frames.mid(offset + 3, 1024);
    }
    return data;
}

} // namespace

void TestXmodemSender::init()
{
    use_select_wait = 1;
    letWaitsEndLate();
    m_unit.reset(new TestUnit(6.0)); // Answers may take 1.6 s of the host.
}

void TestXmodemSender::cleanup()
{
    m_unit.reset();
}

QByteArray TestXmodemSender::content(int size) const
{
    QByteArray bytes;
    for (int index = 0; index < size; ++index) {
        bytes.append(char(index * 7 + index / 256));
    }
    return bytes;
}

Conversation TestXmodemSender::send(int size, const Receiver &receiver)
{
    const QString file = m_folder.filePath(QStringLiteral("file"));
    writeFile(file, content(size));
    const TestLine line;
    m_port = line.port();
    std::thread thread([&] { receiver(line); });
    Conversation outcome =
        converse([&] { return xmodem_send(line.port(), QFile::encodeName(file).constData()); });
    line.portIsThrough();
    thread.join();
    outcome.output.replace(QFile::encodeName(file), "FILE");
    return outcome;
}

void TestXmodemSender::frame()
{
    QByteArray heard;
    const Conversation outcome =
        send(1024, [&](const TestLine &line) { heard = takeAll(line, 1); });
    QCOMPARE(outcome.result, 0);
    QCOMPARE(heard.size(), frameSize + 1);
    QCOMPARE(heard.left(3), QByteArray("\x02\x01\xFE"));
    QCOMPARE(heard.mid(3, 1024), content(1024));
    // The CRC of data with its CRC behind it, high byte first, is 0.
    QCOMPARE(int(get_crc16(heard.constData() + 3, 1026)), 0);
    QCOMPARE(heard.right(1), QByteArray(eot));
}

void TestXmodemSender::finalBlockOf1024BytesIsSentWithoutPaddingFollowedByEot()
{
    QByteArray heard;
    const Conversation outcome =
        send(2048, [&](const TestLine &line) { heard = takeAll(line, 2); });
    QCOMPARE(outcome.result, 0);
    QCOMPARE(heard.size(), 2 * frameSize + 1);
    QCOMPARE(blocksOf(heard), content(2048));
    QCOMPARE(heard.right(1), QByteArray(eot));
    QVERIFY(!outcome.output.contains("filling"));
}

void TestXmodemSender::blockNumbersWrapFrom255To0()
{
    m_unit.reset();                  // Its gate scales time.
    m_unit.reset(new TestUnit(3.0)); // Each of so many answers may take 3.3 s of the host.
    QByteArray heard;
    const Conversation outcome =
        send(258 * 1024, [&](const TestLine &line) { heard = takeAll(line, 258); });
    QCOMPARE(outcome.result, 0);
    for (int block = 1; block <= 258; ++block) {
        const int offset = (block - 1) * frameSize;
        QCOMPARE(int(uchar(heard.at(offset + 1))), block % 256);
        QCOMPARE(int(uchar(heard.at(offset + 2))), 255 - block % 256);
    }
    QCOMPARE(blocksOf(heard), content(258 * 1024));
}

void TestXmodemSender::nakBeforeTheFirstCIsIgnored()
{
    QByteArray heard;
    const Conversation outcome = send(10, [&](const TestLine &line) {
        line.say(QByteArray(nak) + ack + "x");
        heard = takeAll(line, 1);
    });
    QCOMPARE(outcome.result, 0);
    QCOMPARE(heard.size(), frameSize + 1);
}

void TestXmodemSender::aBlockIsSentAgain()
{
    QByteArray first;
    QByteArray second;
    const Conversation outcome = send(1024, [&](const TestLine &line) {
        line.say("C");
        first = line.hear(frameSize);
        line.say(nak);
        second = line.hear(frameSize);
        line.say(ack);
        line.hear(1);
        line.say(ack);
    });
    QCOMPARE(outcome.result, 0);
    QCOMPARE(second, first);
    QVERIFY2(
        outcome.output.contains(".ACK Error!\n0x15\nRetry for ACK,1,1029...OK\nComplete ACK\n"),
        outcome.output.constData());
}

void TestXmodemSender::twelfthNakInARowEndsWithSuccess()
{
    QByteArray heard;
    const Conversation outcome = send(5000, [&](const TestLine &line) {
        line.say("C");
        for (int time = 0; time < 12; ++time) {
            heard += line.hear(frameSize);
            line.say(nak);
        }
    });
    QCOMPARE(outcome.result, 0);
    // Once, and eleven times more.
    QCOMPARE(heard.size(), 12 * frameSize);
    QCOMPARE(heard, heard.left(frameSize).repeated(12));
    QVERIFY(outcome.output.contains("Retry for ACK,1,1029...Error!\nRetry too many times,Quit!\n"));
    QCOMPARE(outcome.output.count("Retry for ACK,1,1029..."), 11);
    QCOMPARE(outcome.filesLeftOpen, 0);
}

void TestXmodemSender::retriesAreCountedForEachBlock()
{
    const Conversation outcome = send(2048, [](const TestLine &line) {
        line.say("C");
        for (int block = 0; block < 2; ++block) {
            for (int time = 0; time < 11; ++time) {
                line.hear(frameSize);
                line.say(nak);
            }
            line.hear(frameSize);
            line.say(ack);
        }
        line.hear(1);
        line.say(ack);
    });
    QCOMPARE(outcome.result, 0);
    QCOMPARE(outcome.output.count("Retry for ACK,1,1029..."), 11);
    QCOMPARE(outcome.output.count("Retry for ACK,2,1029..."), 11);
    QVERIFY(outcome.output.contains("Retry for ACK,2,1029...OK\nComplete ACK\n"));
}

void TestXmodemSender::requestInTheMiddleGoesOn()
{
    QByteArray second;
    const Conversation outcome = send(2048, [&](const TestLine &line) {
        line.say("C");
        line.hear(frameSize);
        line.say("C");
        second = line.hear(frameSize);
        line.say(ack);
        line.hear(1);
        line.say(ack);
    });
    QCOMPARE(outcome.result, 0);
    QCOMPARE(second.mid(3, 1024), content(2048).mid(1024));
    QVERIFY(outcome.output.contains(".ACK Error!\n0x43\nbegining to Send file FILE...\n."));
}

void TestXmodemSender::otherByteIsFatalAndLeavesTheFileOpen()
{
    const Conversation outcome = send(2048, [](const TestLine &line) {
        line.say("C");
        line.hear(frameSize);
        line.say("\x18");
    });
    QCOMPARE(outcome.result, -1);
    QVERIFY(outcome.output.endsWith(".ACK Error!\n0x18\nFatal Error! 24\n"));
    QCOMPARE(outcome.filesLeftOpen, 1);
}

void TestXmodemSender::eotIsSentUntilAcknowledged_data()
{
    QTest::addColumn<QByteArray>("answers");
    QTest::addColumn<QVector<int>>("pauses"); // ahead of each answer, in seconds
    QTest::newRow("other answers first") << QByteArray("\x15x\x06") << QVector<int>{0, 0, 0};
    // The reading waits as long as it takes, and the answer counts before the time does.
    QTest::newRow("late") << QByteArray("\x06") << QVector<int>{15};
    // The ten seconds begin with the first.
    QTest::newRow("refused for too long") << QByteArray("\x15\x15\x15") << QVector<int>{2, 2, 9};
}

void TestXmodemSender::eotIsSentUntilAcknowledged()
{
    QFETCH(QByteArray, answers);
    QFETCH(QVector<int>, pauses);
    const bool endsWell = answers.endsWith(ack);
    m_unit.reset();
    m_unit.reset(new TestUnit(endsWell ? 6.0 : 2.0)); // Nor may a busy host be late by 6 s.
    QByteArray heard;
    const Conversation outcome = send(0, [&](const TestLine &line) {
        line.say("C");
        for (int index = 0; index < answers.size(); ++index) {
            heard += line.hear(1);
            usleep(useconds_t(pauses.at(index)) * 1000000);
            line.say(answers.mid(index, 1));
        }
    });
    QCOMPARE(outcome.result, endsWell ? 0 : -1);
    QCOMPARE(heard, QByteArray(eot).repeated(answers.size()));
    const QByteArray end = endsWell ? "Send file successful!!!\n" : timeOut;
    QVERIFY2(outcome.output.endsWith("Complete ACK\n" + end), outcome.output.constData());
}

void TestXmodemSender::missingFile()
{
    const TestLine line;
    const StdoutCapture output;
    QCOMPARE(xmodem_send(line.port(), "/nowhere/at all"), -1);
    QCOMPARE(output.text(),
             QByteArray("[/nowhere/at all]\n\n can't open this file or not exist!"
                        "(errno=2:No such file or directory) \n"));
}

void TestXmodemSender::timesOut_data()
{
    QTest::addColumn<QByteArray>("answers"); // one after each frame
    QTest::addColumn<QByteArray>("end");
    QTest::newRow("no request") << QByteArray() << QByteArray("Waiting for signal C/NAK!\n");
    QTest::newRow("no answer") << QByteArray("C") << QByteArray("Send file FILE...\n.");
    QTest::newRow("no answer to a second block") << QByteArray("C\x06") << QByteArray("\n..");
    QTest::newRow("no answer to a retry")
        << QByteArray("C\x15") << QByteArray("Retry for ACK,1,1029...");
}

void TestXmodemSender::timesOut()
{
    QFETCH(QByteArray, answers);
    QFETCH(QByteArray, end);
    const Conversation outcome = send(4096, [&](const TestLine &line) {
        for (const char answer : answers) {
            line.say(QByteArray(1, answer));
            line.hear(frameSize);
        }
    });
    QCOMPARE(outcome.result, -1);
    QVERIFY2(outcome.output.endsWith(end + timeOut), outcome.output.constData());
    QVERIFY2(outcome.seconds > 10 && outcome.seconds < 50,
             qPrintable(QString::number(outcome.seconds)));
    QCOMPARE(outcome.filesLeftOpen, 0);
}

void TestXmodemSender::pausesBeforeItReadsAnAnswer()
{
    m_unit.reset(); // Its gate scales time.
    QVector<int> waiting;
    const RecordedSleeps sleeps(10, [&] { waiting.append(wait_readable(m_port)); });
    const Conversation outcome = send(2048, [](const TestLine &line) {
        // Late enough to be waited for.
        const auto answer = [&line](const char *byte) {
            QTest::qSleep(20);
            line.say(byte);
        };
        answer("C");
        for (const char *byte : {nak, ack, ack}) {
            line.hear(frameSize);
            answer(byte);
        }
        line.hear(1);
        line.say(ack);
    });
    QCOMPARE(outcome.result, 0);
    // Ahead of "C", of the first answer, of that to the retry, of that to the second block; the
    // answer to EOT is just waited for.
    QCOMPARE(sleeps.all(), QVector<qint64>({10000, 10000, 100, 10000}));
    QCOMPARE(waiting, QVector<int>({1, 1, 1, 1}));
}

FACTORY_TEST_MAIN(TestXmodemSender)
#include "tst_xmodemsender.moc"
