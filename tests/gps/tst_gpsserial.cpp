#include "gps/gpsserial.h"

#include "scriptedclock.h"
#include "scriptedselect.h"
#include "stdoutcapture.h"
#include "testline.h"

#include "support/testmain.h"

#include <QApplication>
#include <QProcess>
#include <QtTest>

#include <fcntl.h>
#include <pthread.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <thread>

class TestGpsSerial : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void waitingFails_data();
    void waitingFails();
    void selectIsAskedTwice_data();
    void selectIsAskedTwice();
    void pollingTellsHowManyBytes();
    void pollingLastsAMillisecond();
    void pollingEndsWhenTheClockIsSet();

    void readsWhatIsThere();
    void readsAgainWhenNothingIsThere();
    void readsAgainWhenInterrupted();
    void lostLineEndsTheProcess_data();
    void lostLineEndsTheProcess();

    void timerIsPreciseBelowAMillisecond_data();
    void timerIsPreciseBelowAMillisecond();
    void failingMeasurementsDoNotCount_data();
    void failingMeasurementsDoNotCount();
};

void TestGpsSerial::cleanup()
{
    use_select_wait = 0;
}

void TestGpsSerial::waitingFails_data()
{
    QTest::addColumn<int>("bySelect");
    QTest::newRow("select") << 1;
    QTest::newRow("polling") << 0;
}

void TestGpsSerial::waitingFails()
{
    QFETCH(int, bySelect);
    use_select_wait = bySelect;
    const int closed = dup(STDERR_FILENO);
    close(closed);
    QCOMPARE(wait_readable(closed), -1);
    QCOMPARE(errno, EBADF);
}

void TestGpsSerial::selectIsAskedTwice_data()
{
    QTest::addColumn<QVector<ScriptedSelect::Result>>("results");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("calls");
    using Results = QVector<ScriptedSelect::Result>;
    QTest::newRow("at once") << Results({{1, 0}}) << 1 << 1;
    QTest::newRow("later") << Results({{0, 0}, {1, 0}}) << 1 << 2;
    QTest::newRow("never") << Results({{0, 0}, {0, 0}}) << 0 << 2;
    QTest::newRow("interrupted") << Results({{-1, EINTR}, {1, 0}}) << 1 << 2;
    QTest::newRow("interrupted twice") << Results({{-1, EINTR}, {-1, EINTR}}) << -1 << 2;
    QTest::newRow("failed") << Results({{-1, EBADF}, {1, 0}}) << -1 << 1;
    QTest::newRow("failed later") << Results({{0, 0}, {-1, EBADF}}) << -1 << 2;
}

void TestGpsSerial::selectIsAskedTwice()
{
    QFETCH(QVector<ScriptedSelect::Result>, results);
    QFETCH(int, result);
    QFETCH(int, calls);
    use_select_wait = 1;
    const TestLine line;
    const ScriptedSelect script(line.port(), results);
    QCOMPARE(wait_readable(line.port()), result);
    QCOMPARE(script.calls().size(), calls);
    for (const ScriptedSelect::Call &call : script.calls()) {
        QCOMPARE(call.count, 1024);
        QVERIFY(call.readsThat);
        QVERIFY(!call.hasOtherSets);
        QCOMPARE(int(call.timeout.tv_sec), 0);
        QCOMPARE(int(call.timeout.tv_usec), 100);
    }
}

void TestGpsSerial::pollingTellsHowManyBytes()
{
    const TestLine line;
    line.say("12345");
    QTRY_COMPARE(wait_readable(line.port()), 5);
}

void TestGpsSerial::pollingLastsAMillisecond()
{
    const TestLine line;
    const ScriptedClock clock({{1000, 999999}, {1001, 998}, {1001, 999}, {1002, 0}});
    QCOMPARE(wait_readable(line.port()), 0);
    QCOMPARE(clock.calls(), 3);
}

void TestGpsSerial::pollingEndsWhenTheClockIsSet()
{
    const TestLine line;
    const ScriptedClock clock({{1000, 0}, {1000 + 40 * 60, 0}, {1000 + 100 * 60, 0}});
    QCOMPARE(wait_readable(line.port()), 0);
    QCOMPARE(clock.calls(), 2);
}

void TestGpsSerial::readsWhatIsThere()
{
    const TestLine line;
    line.say("position");
    char bytes[16] = {};
    QCOMPARE(deal_read(line.port(), bytes, 3), 3);
    QCOMPARE(QByteArray(bytes), QByteArray("pos"));
    QCOMPARE(deal_read(line.port(), bytes, sizeof bytes), 5);
}

void TestGpsSerial::readsAgainWhenNothingIsThere()
{
    const TestLine line;
    fcntl(line.port(), F_SETFL, O_NONBLOCK);
    std::thread receiver([&line] {
        QTest::qSleep(20);
        line.say("!");
    });
    const StdoutCapture output;
    char byte = 0;
    const int count = deal_read(line.port(), &byte, 1);
    receiver.join();
    QCOMPARE(count, 1);
    QCOMPARE(byte, '!');
    // EAGAIN is 11.
    QVERIFY(output.text().startsWith("read serial return -1, errno = 11, retry.\nread serial"));
}

void TestGpsSerial::readsAgainWhenInterrupted()
{
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    sigaction(SIGUSR1, &action, nullptr);
    const TestLine line;
    const StdoutCapture output;
    const pthread_t reader = pthread_self();
    std::thread receiver([&] {
        // Until one has come while it was reading.
        while (output.text().isEmpty()) {
            pthread_kill(reader, SIGUSR1);
            QTest::qSleep(5);
        }
        line.say("!");
    });
    char byte = 0;
    const int count = deal_read(line.port(), &byte, 1);
    receiver.join();
    QCOMPARE(count, 1);
    QCOMPARE(byte, '!');
    // EINTR is 4.
    QVERIFY(output.text().startsWith("read serial return -1, errno = 4, retry.\n"));
}

void TestGpsSerial::lostLineEndsTheProcess_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("output");
    QTest::newRow("hung up") << QStringLiteral("hung up")
                             << QByteArray("read serial return 0, please check serial device.\n");
    // EBADF is 9.
    QTest::newRow("not open")
        << QStringLiteral("not open")
        << QByteArray("read serial return -1, errno = 9, please check serial device.\n");
}

void TestGpsSerial::lostLineEndsTheProcess()
{
    QFETCH(QString, line);
    QFETCH(QByteArray, output);
    QProcess process;
    startAnother(&process, {QStringLiteral("--read-line"), line});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), output);
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    // -5, of which the system keeps eight bits.
    QCOMPARE(process.exitCode(), 251);
}

void TestGpsSerial::timerIsPreciseBelowAMillisecond_data()
{
    QTest::addColumn<int>("shortest");
    QTest::addColumn<int>("result");
    QTest::newRow("precise") << 999 << 0;
    QTest::newRow("coarse") << 1000 << -1;
}

void TestGpsSerial::timerIsPreciseBelowAMillisecond()
{
    QFETCH(int, shortest);
    QFETCH(int, result);
    QVector<ScriptedSelect::Result> results;
    QVector<timeval> times;
    for (int measurement = 0; measurement < 10; ++measurement) {
        results.append({0, 0});
        times.append({1000, 999990});
        times.append({1001, shortest - 10 + measurement * 7 % 10});
    }
    const ScriptedSelect script(-1, results);
    const StdoutCapture output;
    use_select_wait = 7;
    {
        const ScriptedClock clock(times);
        QCOMPARE(check_select(), result);
        QCOMPARE(clock.calls(), 20);
    }
    QCOMPARE(use_select_wait, result == 0 ? 1 : 0);
    QCOMPARE(QString::fromLatin1(output.text()),
             QStringLiteral("check select() for 100us: min %1, max %2\n")
                 .arg(shortest)
                 .arg(shortest + 9));
}

void TestGpsSerial::failingMeasurementsDoNotCount_data()
{
    QTest::addColumn<int>("failures");
    QTest::addColumn<int>("result");
    QTest::newRow("one") << 1 << 0;
    QTest::newRow("all but one") << 9 << 0;
    QTest::newRow("all") << 10 << -1;
}

void TestGpsSerial::failingMeasurementsDoNotCount()
{
    QFETCH(int, failures);
    QFETCH(int, result);
    QVector<ScriptedSelect::Result> results(failures, {-1, EINTR});
    results.append({0, 0});
    const ScriptedSelect script(-1, results);
    const StdoutCapture output;
    QCOMPARE(check_select(), result);
    QCOMPARE(use_select_wait, result == 0 ? 1 : 0);
    const QByteArray failed = QByteArray("select return with -1\n").repeated(failures);
    QVERIFY2(output.text().startsWith(failed + "check select() for 100us: min "),
             output.text().constData());
    if (failures == 10) {
        QCOMPARE(output.text(), failed + "check select() for 100us: min 2147483647, max 0\n");
    }
    QCOMPARE(script.calls().size(), 10);
    for (const ScriptedSelect::Call &call : script.calls()) {
        QCOMPARE(call.count, 1);
        QVERIFY(!call.hasOtherSets);
        QCOMPARE(int(call.timeout.tv_sec), 0);
        QCOMPARE(int(call.timeout.tv_usec), 100);
    }
}

namespace
{

/// What the child process does.
int readLine(const char *kind)
{
    TestLine line;
    char byte = 0;
    if (qstrcmp(kind, "hung up") == 0) {
        line.hangUp();
        errno = EAGAIN; // of an earlier reading
        deal_read(line.port(), &byte, 1);
    } else {
        deal_read(-1, &byte, 1);
    }
    return 0;
}

} // namespace

static const RegisteredTest registered(__FILE__, [](int argc, char *argv[]) {
    const bool isChild = argc == 3 && qstrcmp(argv[1], "--read-line") == 0;
    return isChild ? readLine(argv[2]) : runTest<QApplication, TestGpsSerial>(argc, argv);
});

#include "tst_gpsserial.moc"
