#include "simulator/framework/graphicalthread.h"

#include "support/testmain.h"

#include <QDeadlineTimer>
#include <QThread>
#include <QtTest>

#include <atomic>

using namespace simulator;

namespace
{

/// A thread that runs a function and is waited for, while the event loop of this one runs.
class OtherThread
{
public:
    explicit OtherThread(const std::function<void()> &function)
        : m_thread(QThread::create(function))
    {
        m_thread->start();
    }

    ~OtherThread() { m_thread->wait(); }

    bool waitFor()
    {
        return QTest::qWaitFor([this] { return m_thread->isFinished(); }) && m_thread->wait();
    }

private:
    QScopedPointer<QThread> m_thread;
};

/// Does something again and again while nothing runs this thread's event loop, until it is so.
bool doUntil(const std::atomic<bool> &isSo, const std::function<void()> &work)
{
    const QDeadlineTimer patience(5000);
    while (!isSo && !patience.hasExpired()) {
        work();
    }
    return isSo;
}

} // namespace

class TestGraphicalThread : public QObject
{
    Q_OBJECT

private slots:
    void runsOnItsOwnThread();
    void runsAtOnceOnTheSameThread();
    void keepsTheOrderOfTheQueue();
    void givesUpWhenBlocked();
    void givesUpWhenAsleep();
    void waitsForABusyThread();
    void givesUpWhenBusyForLong();
    void waitsForWhatHasBegun();
    void closingInterruptsAPause();
    void closingInterruptsACall();
    void pauseOnTheGraphicalThreadRunsTheEventLoop();
    void waitUntilReturnsAsSoonAsItIsSo();
    void waitUntilGivesUp();
};

void TestGraphicalThread::runsOnItsOwnThread()
{
    GraphicalThread graphical;
    QThread *ranOn = nullptr;
    bool done = false;
    OtherThread other([&] { done = graphical.run([&] { ranOn = QThread::currentThread(); }); });
    QVERIFY(other.waitFor());
    QVERIFY(done);
    QCOMPARE(ranOn, QThread::currentThread());
}

void TestGraphicalThread::runsAtOnceOnTheSameThread()
{
    GraphicalThread graphical;
    bool ran = false;
    QVERIFY(graphical.run([&ran] { ran = true; }));
    QVERIFY(ran);
}

void TestGraphicalThread::keepsTheOrderOfTheQueue()
{
    GraphicalThread graphical;
    QStringList order;
    QMetaObject::invokeMethod(
        this, [&order] { order.append("queued before"); }, Qt::QueuedConnection);
    OtherThread other([&] { graphical.run([&order] { order.append("asked for"); }); });
    QVERIFY(other.waitFor());
    QCOMPARE(order, (QStringList{"queued before", "asked for"}));
}

void TestGraphicalThread::givesUpWhenBlocked()
{
    GraphicalThread graphical;
    std::atomic<bool> gaveUp{false};
    bool ran = false;
    OtherThread other([&] { gaveUp = !graphical.runWithin(50, [&ran] { ran = true; }); });
    QVERIFY(doUntil(gaveUp, [] { QThread::msleep(5); }));
    QCoreApplication::processEvents();
    QVERIFY(!ran);
}

void TestGraphicalThread::givesUpWhenAsleep()
{
    GraphicalThread graphical;
    std::atomic<bool> gaveUp{false};
    OtherThread other([&] { gaveUp = !graphical.runWithin(10000, 50, [] {}); });
    QVERIFY(doUntil(gaveUp, [] { QThread::msleep(20); }));
}

void TestGraphicalThread::waitsForABusyThread()
{
    GraphicalThread graphical;
    std::atomic<bool> ended{false};
    bool done = false;
    OtherThread other([&] {
        done = graphical.runWithin(10000, 50, [] {});
        ended = true;
    });
    const QDeadlineTimer busy(500);
    while (!busy.hasExpired()) { }
    QVERIFY(!ended);
    QVERIFY(other.waitFor());
    QVERIFY(done);
}

void TestGraphicalThread::givesUpWhenBusyForLong()
{
    GraphicalThread graphical;
    std::atomic<bool> gaveUp{false};
    OtherThread other([&] { gaveUp = !graphical.runWithin(50, 10000, [] {}); });
    QVERIFY(doUntil(gaveUp, [] {}));
}

void TestGraphicalThread::waitsForWhatHasBegun()
{
    GraphicalThread graphical;
    bool done = false;
    OtherThread other([&] { done = graphical.runWithin(50, [] { QThread::msleep(300); }); });
    QVERIFY(other.waitFor());
    QVERIFY(done);
}

void TestGraphicalThread::closingInterruptsAPause()
{
    GraphicalThread graphical;
    bool passed = true;
    OtherThread other([&] { passed = graphical.pause(3600000); });
    graphical.close();
    QVERIFY(other.waitFor());
    QVERIFY(!passed);
}

void TestGraphicalThread::closingInterruptsACall()
{
    GraphicalThread graphical;
    bool done = true;
    bool ran = false;
    {
        OtherThread other([&] { done = graphical.run([&ran] { ran = true; }); });
        QThread::msleep(50);
        graphical.close();
    }
    QVERIFY(!done);
    QCoreApplication::processEvents();
    QVERIFY(!ran);
}

void TestGraphicalThread::pauseOnTheGraphicalThreadRunsTheEventLoop()
{
    GraphicalThread graphical;
    bool ran = false;
    QMetaObject::invokeMethod(
        this, [&ran] { ran = true; }, Qt::QueuedConnection);
    QVERIFY(graphical.pause(1));
    QVERIFY(ran);
}

void TestGraphicalThread::waitUntilReturnsAsSoonAsItIsSo()
{
    GraphicalThread graphical;
    bool ready = false;
    QTimer::singleShot(20, this, [&ready] { ready = true; });
    QVERIFY(graphical.waitUntil(3600000, [&ready] { return ready; }));
}

void TestGraphicalThread::waitUntilGivesUp()
{
    GraphicalThread graphical;
    int asked = 0;
    QVERIFY(!graphical.waitUntil(30, [&asked] {
        ++asked;
        return false;
    }));
    QVERIFY(asked > 1);
}

FACTORY_TEST_GUILESS_MAIN(TestGraphicalThread)
#include "tst_graphicalthread.moc"
