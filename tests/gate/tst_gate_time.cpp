#include "gate/gate.h"

#include "probemodule.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QtTest>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <functional>
#include <thread>
#include <vector>

#include <sys/time.h>
#include <unistd.h>

using hardware::Gate;

using Wait = std::function<int(const GateProbe &)>;
Q_DECLARE_METATYPE(Wait)

namespace
{

constexpr double fast = 100; // the time factor of the tests of time

// The upper bounds of times are far off, for busy machines, and still far below what an unscaled
// wait would last.
constexpr int muchTooLongMs = 20000;

/// Interrupts the waits of its lifetime by a signal, after 200 ms and again and again in case that
/// the wait has not begun by then.
class Interruption
{
public:
    Interruption()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        sigaction(SIGALRM, &action, &m_former);
        const itimerval twiceASecond = {{0, 500000}, {0, 500000}};
        setitimer(ITIMER_REAL, &twiceASecond, nullptr);
        m_timer.start();
    }
    ~Interruption()
    {
        const itimerval never = {};
        setitimer(ITIMER_REAL, &never, nullptr);
        sigaction(SIGALRM, &m_former, nullptr);
    }
    Q_DISABLE_COPY(Interruption)

    /// Whether that rest of a wait of 10 000 unit seconds is right: what went by since this object
    /// was made is the most that can be missing, and a second (10 ms) the least.
    bool leaves(double seconds) const
    {
        return seconds >= 10000 - m_timer.nsecsElapsed() / 1e9 * fast && seconds <= 9999;
    }

private:
    struct sigaction m_former = {};
    QElapsedTimer m_timer;
};

} // namespace

/// The unit's time, as a gate has the process see it.
class TestGateTime : public QObject
{
    Q_OBJECT

private slots:
    void timeOfFactorOneIsTheHosts();
    void timeRunsFaster_data();
    void timeRunsFaster();
    void selectKeepsTheRestInUnitTime();
    void selectWithoutTimeoutWaits();
    void selectThatOnlyLooksDoesNotWait();
    void aVeryShortWaitEnds();
    void anInterruptedWaitKeepsTheRestInUnitTime();
    void wrongTimesAreRefused();
    void theClockBeginsWithTheHosts();
    void theClockRunsFaster();
    void theClockNeverGoesBack();
    void theUnitsOwnClockIsNotScaledTwice();
    void anotherSpeedGoesOnFromWhereTheClockStands();
};

void TestGateTime::timeOfFactorOneIsTheHosts()
{
    OpenUnit unit;
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(probe.usleep(30000), 0);
    QVERIFY(timer.nsecsElapsed() >= 30000000);

    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    timer.restart();
    timeval timeout = {0, 30000};
    QCOMPARE(probe.select(pipeEnds[0], &timeout), 0);
    QVERIFY(timer.nsecsElapsed() >= 30000000);
    close(pipeEnds[0]);
    close(pipeEnds[1]);

    timespec host;
    timeval shown;
    clock_gettime(CLOCK_REALTIME, &host);
    QCOMPARE(probe.gettimeofday(&shown), 0);
    QVERIFY(shown.tv_sec >= host.tv_sec && shown.tv_sec < host.tv_sec + 60);
}

void TestGateTime::timeRunsFaster_data()
{
    QTest::addColumn<Wait>("wait");

    const auto row = [](const char *name, const Wait &wait) { QTest::newRow(name) << wait; };
    // Ten seconds of the unit's time each.
    row("sleep", [](const GateProbe &probe) { return int(probe.sleep(10)); });
    row("usleep", [](const GateProbe &probe) { return probe.usleep(10000000); });
    row("nanosleep", [](const GateProbe &probe) {
        const timespec duration = {9, 1000000000 - 1};
        timespec remaining = {5, 5};
        return probe.nanosleep(&duration, &remaining);
    });
    row("select", [](const GateProbe &probe) {
        int pipeEnds[2];
        timeval timeout = {10, 0};
        int result = pipe(pipeEnds);
        result += probe.select(pipeEnds[0], &timeout);
        close(pipeEnds[0]);
        close(pipeEnds[1]);
        return result + int(timeout.tv_sec + timeout.tv_usec);
    });
    row("QThread", [](const GateProbe &) {
        QThread::msleep(10000);
        return 0;
    });
    row("std::this_thread", [](const GateProbe &) {
        std::this_thread::sleep_for(std::chrono::seconds(10));
        return 0;
    });
}

void TestGateTime::timeRunsFaster()
{
    QFETCH(Wait, wait);

    OpenUnit unit(fast);
    const Gate gate(*unit);
    for (const char *module : probeModules) {
        const GateProbe &probe = probeOf(module);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(wait(probe), 0);
        const double elapsedMs = timer.nsecsElapsed() / 1e6;
        QVERIFY2(elapsedMs >= 99.9, qPrintable(QString::number(elapsedMs)));
        QVERIFY2(elapsedMs < 5000, qPrintable(QString::number(elapsedMs)));
    }
}

void TestGateTime::selectKeepsTheRestInUnitTime()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    std::thread writer([&pipeEnds, &unit] {
        unit->clock().sleep(200000000);
        if (write(pipeEnds[1], "x", 1) != 1) {
            qFatal("The pipe cannot be written.");
        }
    });
    timeval timeout = {10000, 0};
    const int result = probeOf("gateprobe").select(pipeEnds[0], &timeout);
    writer.join();
    close(pipeEnds[0]);
    close(pipeEnds[1]);
    QCOMPARE(result, 1);
    // Of the writer's 200 seconds a busy host may have begun up to a half before the wait; hours
    // are not over.
    const double left = timeout.tv_sec + timeout.tv_usec / 1e6;
    QVERIFY2(left <= 9900 && left > 5000, qPrintable(QString::number(left)));
    QVERIFY(timeout.tv_usec >= 0 && timeout.tv_usec < 1000000);
}

void TestGateTime::selectWithoutTimeoutWaits()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    QElapsedTimer timer;
    timer.start();
    std::thread writer([&pipeEnds, &unit] {
        unit->clock().sleep(200000000);
        if (write(pipeEnds[1], "x", 1) != 1) {
            qFatal("The pipe cannot be written.");
        }
    });
    const int result = probeOf("gateprobe").select(pipeEnds[0], nullptr);
    const qint64 elapsed = timer.elapsed();
    writer.join();
    close(pipeEnds[0]);
    close(pipeEnds[1]);
    QCOMPARE(result, 1);
    QVERIFY2(elapsed >= 30, qPrintable(QString::number(elapsed)));
}

void TestGateTime::selectThatOnlyLooksDoesNotWait()
{
    OpenUnit unit(0.001);
    const Gate gate(*unit);
    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    QElapsedTimer timer;
    timer.start();
    timeval timeout = {0, 0};
    QCOMPARE(probeOf("gateprobe").select(pipeEnds[0], &timeout), 0);
    QVERIFY(timer.elapsed() < muchTooLongMs);
    close(pipeEnds[0]);
    close(pipeEnds[1]);
}

void TestGateTime::aVeryShortWaitEnds()
{
    OpenUnit unit(1e6);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(probe.usleep(1), 0);
    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    timeval timeout = {0, 1};
    QCOMPARE(probe.select(pipeEnds[0], &timeout), 0);
    close(pipeEnds[0]);
    close(pipeEnds[1]);
    // Two waits of at least a microsecond of the host's.
    QVERIFY(timer.nsecsElapsed() >= 2000);
    QVERIFY(timer.elapsed() < muchTooLongMs);
}

void TestGateTime::anInterruptedWaitKeepsTheRestInUnitTime()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    {
        const Interruption interruption;
        const unsigned int left = probe.sleep(10000);
        QVERIFY2(interruption.leaves(left), qPrintable(QString::number(left)));
    }
    {
        const Interruption interruption;
        const timespec duration = {10000, 0};
        timespec left = {};
        QCOMPARE(probe.nanosleep(&duration, &left), -1);
        QCOMPARE(errno, EINTR);
        const double seconds = left.tv_sec + left.tv_nsec / 1e9;
        QVERIFY2(interruption.leaves(seconds), qPrintable(QString::number(seconds)));
        QVERIFY(left.tv_nsec >= 0 && left.tv_nsec < 1000000000);
    }
    {
        const Interruption interruption;
        const timespec duration = {10000, 0};
        QCOMPARE(probe.nanosleep(&duration, nullptr), -1);
    }
    {
        const Interruption interruption;
        QCOMPARE(probe.usleep(1000000000), -1);
        QCOMPARE(errno, EINTR);
    }
}

void TestGateTime::wrongTimesAreRefused()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    for (const timespec wrong : {timespec{-1, 0}, timespec{0, -1}, timespec{0, 1000000000}}) {
        errno = 0;
        QCOMPARE(probe.nanosleep(&wrong, nullptr), -1);
        QCOMPARE(errno, EINVAL);
    }
    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    for (timeval wrong : {timeval{-1, 0}, timeval{0, -1}}) {
        errno = 0;
        QCOMPARE(probe.select(pipeEnds[0], &wrong), -1);
        QCOMPARE(errno, EINVAL);
    }
    close(pipeEnds[0]);
    close(pipeEnds[1]);
}

void TestGateTime::theClockBeginsWithTheHosts()
{
    OpenUnit unit(fast);
    timespec before;
    clock_gettime(CLOCK_REALTIME, &before);
    const Gate gate(*unit);
    timeval shown;
    QCOMPARE(probeOf("gateprobe").gettimeofday(&shown), 0);
    // Far below a minute of the host's can have passed in between.
    QVERIFY(shown.tv_sec >= before.tv_sec);
    QVERIFY(shown.tv_sec < before.tv_sec + 60 * fast);
}

void TestGateTime::theClockRunsFaster()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    const auto seconds = [&probe] {
        timeval now;
        probe.gettimeofday(&now);
        return now.tv_sec + now.tv_usec / 1e6;
    };
    QElapsedTimer outer;
    outer.start();
    const double before = seconds();
    QElapsedTimer inner;
    inner.start();
    unit->clock().sleep(10000000);
    const double atLeast = inner.nsecsElapsed() / 1e9 * fast;
    const double shown = seconds() - before;
    const double atMost = outer.nsecsElapsed() / 1e9 * fast;
    QVERIFY2(shown >= atLeast - 0.001 && shown <= atMost + 0.001,
             qPrintable(QStringLiteral("%1 <= %2 <= %3").arg(atLeast).arg(shown).arg(atMost)));
    QVERIFY(shown >= 9.9);
}

void TestGateTime::theClockNeverGoesBack()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&probe, &failures] {
            timeval last = {};
            for (int i = 0; i < 20000; ++i) {
                timeval now;
                probe.gettimeofday(&now);
                const bool isLater = now.tv_sec > last.tv_sec
                    || (now.tv_sec == last.tv_sec && now.tv_usec >= last.tv_usec);
                failures += isLater && now.tv_usec >= 0 && now.tv_usec < 1000000 ? 0 : 1;
                last = now;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QCOMPARE(failures.load(), 0);
}

void TestGateTime::theUnitsOwnClockIsNotScaledTwice()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    QElapsedTimer timer;
    timer.start();
    unit->clock().sleep(10000000);
    QVERIFY2(timer.nsecsElapsed() >= 99900000, qPrintable(QString::number(timer.elapsed())));
}

void TestGateTime::anotherSpeedGoesOnFromWhereTheClockStands()
{
    OpenUnit unit(1000);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    timeval fastTime;
    timeval hostTime;
    QCOMPARE(probe.usleep(20000000), 0); // lasts 20 ms
    probe.gettimeofday(&fastTime);
    unit->setTimeFactor(1);
    QCOMPARE(unit->journal().lines(), QStringList("unit speed 1"));
    probe.gettimeofday(&hostTime);
    QVERIFY(timercmp(&hostTime, &fastTime, >=));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(probe.usleep(30000), 0);
    QVERIFY(timer.nsecsElapsed() >= 30000000);
}

FACTORY_TEST_GUILESS_MAIN(TestGateTime)
#include "tst_gate_time.moc"
