#include "hardware/unit/clock.h"
#include "hardware/unit/deviceloop.h"
#include "hardware/unit/gatebypass.h"
#include "support/testmain.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

#include <atomic>

using hardware::Clock;
using hardware::DeviceLoop;

class TestDeviceLoop : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void callsRunOnTheThreadInTheirOrder();
    void withoutAThreadCallsRunAtOnce();
    void callsFromTheThreadRunAtOnce();
    void inputIsNoticed();
    void whatIsDueComesInItsOrder();
    void othersMayAskForSomethingLater();
    void dropAllDrops();
    void stopEndsTheThread();
    void worksOnTheHostsFiles();

private:
    const Clock m_clock{10.0};
    QScopedPointer<DeviceLoop> m_loop;
    int m_pipe[2] = {-1, -1};
    std::atomic<int> m_received{0};
};

void TestDeviceLoop::init()
{
    QCOMPARE(pipe2(m_pipe, O_CLOEXEC), 0);
    m_received = 0;
    m_loop.reset(new DeviceLoop(m_clock));
    m_loop->start([this] { return m_pipe[0]; },
                  [this] {
                      char bytes[16];
                      m_received += int(read(m_pipe[0], bytes, sizeof bytes));
                  },
                  [] {});
}

void TestDeviceLoop::cleanup()
{
    m_loop.reset();
    close(m_pipe[0]);
    close(m_pipe[1]);
}

void TestDeviceLoop::callsRunOnTheThreadInTheirOrder()
{
    QStringList order;
    std::thread::id thread;
    m_loop->call([&] {
        thread = std::this_thread::get_id();
        order.append(QStringLiteral("first"));
    });
    m_loop->call([&] { order.append(QStringLiteral("second")); });
    QVERIFY(thread != std::this_thread::get_id());
    QCOMPARE(order, QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

void TestDeviceLoop::withoutAThreadCallsRunAtOnce()
{
    DeviceLoop loop(m_clock);
    std::thread::id thread;
    loop.call([&] { thread = std::this_thread::get_id(); });
    QCOMPARE(thread, std::this_thread::get_id());
}

void TestDeviceLoop::callsFromTheThreadRunAtOnce()
{
    bool hasRun = false;
    m_loop->call([&] { m_loop->call([&] { hasRun = true; }); });
    QVERIFY(hasRun);
}

void TestDeviceLoop::inputIsNoticed()
{
    QCOMPARE(write(m_pipe[1], "hello", 5), ssize_t(5));
    QTRY_COMPARE(m_received.load(), 5);
}

void TestDeviceLoop::whatIsDueComesInItsOrder()
{
    std::atomic<int> sequence{0};
    QElapsedTimer clock;
    clock.start();
    m_loop->call([&] {
        m_loop->after(1000, [&] { sequence = sequence * 10 + 2; });
        m_loop->after(500, [&] { sequence = sequence * 10 + 1; });
    });
    QTRY_COMPARE(sequence.load(), 12);
    // A second of a unit that runs ten times as fast.
    QVERIFY(clock.elapsed() >= 100);
}

void TestDeviceLoop::othersMayAskForSomethingLater()
{
    DeviceLoop loop(m_clock);
    loop.start(); // without a descriptor
    std::atomic<bool> hasRun{false};
    std::thread::id thread;
    // The loop sleeps without an end by then.
    QTest::qSleep(50);
    loop.after(10, [&] {
        thread = std::this_thread::get_id();
        hasRun = true;
    });
    QTRY_VERIFY(hasRun);
    QVERIFY(thread != std::this_thread::get_id());
}

void TestDeviceLoop::dropAllDrops()
{
    std::atomic<bool> hasRun{false};
    m_loop->call([&] {
        m_loop->after(10, [&] { hasRun = true; });
        m_loop->dropAll();
    });
    QTest::qWait(20);
    QVERIFY(!hasRun);
}

void TestDeviceLoop::stopEndsTheThread()
{
    m_loop->call([this] { m_loop->after(1000000, [] { qFatal("too late"); }); });
    m_loop->stop();
    std::thread::id thread;
    m_loop->call([&] { thread = std::this_thread::get_id(); });
    QCOMPARE(thread, std::this_thread::get_id());
}

void TestDeviceLoop::worksOnTheHostsFiles()
{
    bool isHosts = false;
    m_loop->call([&] { isHosts = hardware::GateBypass::isActive(); });
    QVERIFY(isHosts);
}

FACTORY_TEST_GUILESS_MAIN(TestDeviceLoop)
#include "tst_deviceloop.moc"
