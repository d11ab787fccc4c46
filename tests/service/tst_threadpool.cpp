#include "service/threadpool.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

#include <atomic>
#include <thread>

class TestThreadPool : public QObject
{
    Q_OBJECT

private slots:
    void runsTasksBesideTheCaller();
    void joinWaitsForAllOfThatName();
    void joinOfAnotherNameDoesNotWait();
    void joinWithoutATaskReturns();
    void taskMayJoinItsOwnName();
    void endOfTheUnitWaits();
};

namespace
{

/// A door that tasks wait at.
class Door
{
public:
    void open() { m_isOpen = true; }
    void pass() const
    {
        while (!m_isOpen) {
            QTest::qSleep(1);
        }
    }

private:
    std::atomic<bool> m_isOpen{false};
};

} // namespace

void TestThreadPool::runsTasksBesideTheCaller()
{
    const TestUnit unit;
    std::thread::id thread;
    ThreadPool::getInstance()->addTask([&] { thread = std::this_thread::get_id(); }, "task");
    ThreadPool::getInstance()->joinTaskStop("task");
    QVERIFY(thread != std::thread::id());
    QVERIFY(thread != std::this_thread::get_id());
    QCOMPARE(
        unit.journal(QStringLiteral("/^threads (start|end)/")),
        QStringList({QStringLiteral("threads start task"), QStringLiteral("threads end task")}));
}

void TestThreadPool::joinWaitsForAllOfThatName()
{
    const TestUnit unit;
    Door door;
    std::atomic<int> ended{0};
    for (int task = 0; task < 3; ++task) {
        ThreadPool::getInstance()->addTask(
            [&] {
                door.pass();
                QTest::qSleep(20);
                ++ended;
            },
            "same");
    }
    QCOMPARE(ended.load(), 0);
    door.open();
    ThreadPool::getInstance()->joinTaskStop("same");
    QCOMPARE(ended.load(), 3);
}

void TestThreadPool::joinOfAnotherNameDoesNotWait()
{
    const TestUnit unit;
    Door door;
    std::atomic<bool> hasEnded{false};
    ThreadPool::getInstance()->addTask(
        [&] {
            door.pass();
            hasEnded = true;
        },
        "slow");
    ThreadPool::getInstance()->joinTaskStop("other");
    QVERIFY(!hasEnded);
    door.open();
    ThreadPool::getInstance()->joinTaskStop("slow");
    QVERIFY(hasEnded);
}

void TestThreadPool::joinWithoutATaskReturns()
{
    const TestUnit unit;
    ThreadPool::getInstance()->joinTaskStop("nothing");
    QCOMPARE(unit.journal(QStringLiteral("threads")),
             QStringList(QStringLiteral("threads join nothing")));
}

void TestThreadPool::taskMayJoinItsOwnName()
{
    const TestUnit unit;
    std::atomic<bool> hasEnded{false};
    ThreadPool::getInstance()->addTask(
        [&] {
            ThreadPool::getInstance()->joinTaskStop("self");
            hasEnded = true;
        },
        "self");
    ThreadPool::getInstance()->joinTaskStop("self");
    QVERIFY(hasEnded);
}

void TestThreadPool::endOfTheUnitWaits()
{
    std::atomic<bool> hasEnded{false};
    {
        const TestUnit unit;
        ThreadPool::getInstance()->addTask(
            [&] {
                QTest::qSleep(50);
                hasEnded = true;
            },
            "last");
    }
    QVERIFY(hasEnded);
}

FACTORY_TEST_MAIN(TestThreadPool)
#include "tst_threadpool.moc"
