#include "hardware/unit/cause.h"
#include "hardware/unit/latercause.h"
#include "support/testmain.h"

#include <QtTest>

#include <thread>

using hardware::Cause;
using hardware::CauseScope;

/// Whatever Qt does later follows from what had it done.
class TestLaterCalls : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void queuedCallsFollowFromTheirSignals();
    void everyConnectionHasItsOwnOrder();
    void aBlockedSenderLeavesNothingBehind();
    void aDirectCallFollowsFromWhatGoesOn();
    void aSignalOfAnotherThreadIsFollowed();
    void aThreadThatWaitsIsFollowed();
    void connectionsStayUniqueAndCanBeUndone();
    void queuedFunctionsFollowFromTheirCaller();
    void oldConnectionsFollowFromNothing();
    void deletionsFollowFromWhoAskedForThem();
    void eventsFollowFromWhoPostedThem();

signals:
    void asked(int number);
    void other();

public slots:
    void hear(int number) { m_heard.append({number, Cause::current()}); }

protected:
    bool event(QEvent *event) override;

private:
    using Heard = QVector<QPair<int, Cause>>;

    /// Emits asked() twice as something of its own each time.
    QVector<Cause> askTwice();

    Heard m_heard;
};

namespace
{
const auto ownEvent = QEvent::Type(QEvent::User + 1);
}

void TestLaterCalls::init()
{
    disconnect(this, &TestLaterCalls::asked, nullptr, nullptr);
    disconnect(this, &TestLaterCalls::other, nullptr, nullptr);
    m_heard.clear();
}

bool TestLaterCalls::event(QEvent *event)
{
    if (event->type() != ownEvent) {
        return QObject::event(event);
    }
    m_heard.append({0, hardware::causeOfPosted(*event)});
    return true;
}

QVector<Cause> TestLaterCalls::askTwice()
{
    const QVector<Cause> causes = {Cause::begun(), Cause::begun()};
    for (int number = 0; number < causes.size(); ++number) {
        const CauseScope scope(causes.at(number));
        emit asked(number);
    }
    return causes;
}

void TestLaterCalls::queuedCallsFollowFromTheirSignals()
{
    connect(this, &TestLaterCalls::asked, this, &TestLaterCalls::hear, Qt::QueuedConnection);
    const QVector<Cause> causes = askTwice();
    emit asked(2);
    QVERIFY(m_heard.isEmpty());
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_heard, Heard({{0, causes.at(0)}, {1, causes.at(1)}, {2, Cause()}}));
    QVERIFY(!Cause::current().isKnown());
}

void TestLaterCalls::everyConnectionHasItsOwnOrder()
{
    const auto others = QSharedPointer<Heard>::create();
    connect(
        this, &TestLaterCalls::asked, this,
        [others](int number) {
            others->append({number, Cause::current()});
        },
        Qt::QueuedConnection);
    const QVector<Cause> before = askTwice();
    connect(this, &TestLaterCalls::asked, this, &TestLaterCalls::hear, Qt::QueuedConnection);
    const QVector<Cause> after = askTwice();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_heard, Heard({{0, after.at(0)}, {1, after.at(1)}}));
    QCOMPARE(*others,
             Heard({{0, before.at(0)}, {1, before.at(1)}, {0, after.at(0)}, {1, after.at(1)}}));
}

void TestLaterCalls::aBlockedSenderLeavesNothingBehind()
{
    connect(this, &TestLaterCalls::asked, this, &TestLaterCalls::hear, Qt::QueuedConnection);
    blockSignals(true);
    askTwice();
    blockSignals(false);
    const QVector<Cause> causes = askTwice();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_heard, Heard({{0, causes.at(0)}, {1, causes.at(1)}}));
}

void TestLaterCalls::aDirectCallFollowsFromWhatGoesOn()
{
    connect(this, &TestLaterCalls::asked, this, &TestLaterCalls::hear);
    const QVector<Cause> causes = askTwice();
    QCOMPARE(m_heard, Heard({{0, causes.at(0)}, {1, causes.at(1)}}));
}

void TestLaterCalls::aSignalOfAnotherThreadIsFollowed()
{
    connect(this, &TestLaterCalls::asked, this, &TestLaterCalls::hear);
    QVector<Cause> causes;
    std::thread([this, &causes] { causes = askTwice(); }).join();
    QVERIFY(m_heard.isEmpty());
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_heard, Heard({{0, causes.at(0)}, {1, causes.at(1)}}));
}

void TestLaterCalls::aThreadThatWaitsIsFollowed()
{
    connect(this, &TestLaterCalls::asked, this, &TestLaterCalls::hear,
            Qt::BlockingQueuedConnection);
    QVector<Cause> causes;
    std::thread thread([this, &causes] { causes = askTwice(); });
    QTRY_COMPARE(m_heard.size(), 2);
    thread.join();
    QCOMPARE(m_heard, Heard({{0, causes.at(0)}, {1, causes.at(1)}}));
}

void TestLaterCalls::connectionsStayUniqueAndCanBeUndone()
{
    const auto unique = Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection);
    QVERIFY(connect(this, &TestLaterCalls::asked, this, &TestLaterCalls::hear, unique));
    QVERIFY(!connect(this, &TestLaterCalls::asked, this, &TestLaterCalls::hear, unique));
    const QVector<Cause> causes = askTwice();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_heard, Heard({{0, causes.at(0)}, {1, causes.at(1)}}));
    QVERIFY(disconnect(this, &TestLaterCalls::asked, this, &TestLaterCalls::hear));
    askTwice();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_heard.size(), 2);
}

void TestLaterCalls::queuedFunctionsFollowFromTheirCaller()
{
    const Cause cause = Cause::begun();
    {
        const CauseScope scope(cause);
        QMetaObject::invokeMethod(
            this, [this] { hear(1); }, Qt::QueuedConnection);
    }
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_heard, Heard({{1, cause}}));
}

void TestLaterCalls::oldConnectionsFollowFromNothing()
{
    connect(this, SIGNAL(asked(int)), this, SLOT(hear(int)), Qt::QueuedConnection);
    askTwice();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_heard, Heard({{0, Cause()}, {1, Cause()}}));
}

void TestLaterCalls::deletionsFollowFromWhoAskedForThem()
{
    const Cause cause = Cause::begun();
    auto *object = new QObject;
    QVERIFY(!hardware::causeOfDeletion(*object).isKnown());
    {
        const CauseScope scope(cause);
        object->deleteLater();
    }
    QVERIFY(hardware::causeOfDeletion(*object) == cause);
    const QPointer<QObject> still(object);
    QCoreApplication::sendPostedEvents(object, QEvent::DeferredDelete);
    QVERIFY(still.isNull());
}

void TestLaterCalls::eventsFollowFromWhoPostedThem()
{
    const Cause cause = Cause::begun();
    {
        const CauseScope scope(cause);
        QCoreApplication::postEvent(this, new QEvent(ownEvent));
    }
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_heard, Heard({{0, cause}}));
}

FACTORY_TEST_GUILESS_MAIN(TestLaterCalls)
#include "tst_latercalls.moc"
