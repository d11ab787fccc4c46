#include "kvappframework/simactivitymanager.h"

#include "support/testunit.h"
#include "testactivity.h"

#include <QSignalSpy>
#include <QtTest>

using namespace kvappframework;

class TestSimActivityManager : public QObject
{
    Q_OBJECT

private slots:
    void startIsCarriedOutFromTheEventLoop();
    void closeIsCarriedOutFromTheEventLoop();
    void requestsKeepTheirOrder();
    void startOfARunningActivityOnlyRestartsIt();
    void closeOfAnActivityThatDoesNotRunDoesNothing();
    void unknownNamesAreRefused();
    void missingModulePreventsTheStart();
    void emptyModuleNameIsNoModule();
    void closeTopClosesTheLatest();
    void closeAllClosesTheLatestFirst();
    void removeClosesAtOnce();
    void keepsTheArgument();
};

void TestSimActivityManager::startIsCarriedOutFromTheEventLoop()
{
    TestUnit unit;
    TestActivity activity(QStringLiteral("one"));
    SimActivityManager &manager = unit.framework().activities();
    manager.add(&activity);
    QSignalSpy started(&manager, &SimActivityManager::activityStarted);

    QCOMPARE(manager.startActivity(QStringLiteral("one"), 7), 0);
    QCOMPARE(activity.calls, QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(activity.calls, QStringList({QStringLiteral("onCreat"), QStringLiteral("onStart")}));
    QCOMPARE(started.size(), 1);
    QCOMPARE(started.first(), QVariantList({QStringLiteral("one"), 7}));
    QCOMPARE(unit.journal(QStringLiteral("framework")),
             QStringList({QStringLiteral("framework start one 7"),
                          QStringLiteral("framework started one")}));
    manager.remove(&activity);
}

void TestSimActivityManager::closeIsCarriedOutFromTheEventLoop()
{
    TestUnit unit;
    TestActivity activity(QStringLiteral("one"));
    SimActivityManager &manager = unit.framework().activities();
    manager.add(&activity);
    manager.startActivity(QStringLiteral("one"), 0);
    QCoreApplication::processEvents();
    activity.calls.clear();
    QSignalSpy closed(&manager, &SimActivityManager::activityClosed);

    QCOMPARE(manager.closeActivity(QStringLiteral("one")), 0);
    QCOMPARE(activity.calls, QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(activity.calls, QStringList({QStringLiteral("onStop"), QStringLiteral("onDestory")}));
    QCOMPARE(closed.size(), 1);
    QCOMPARE(manager.running(), QStringList());
    manager.remove(&activity);
}

void TestSimActivityManager::requestsKeepTheirOrder()
{
    TestUnit unit;
    TestActivity one(QStringLiteral("one"));
    TestActivity two(QStringLiteral("two"));
    SimActivityManager &manager = unit.framework().activities();
    manager.add(&one);
    manager.add(&two);
    manager.startActivity(QStringLiteral("one"), 0);
    manager.closeActivity(QStringLiteral("one"));
    manager.startActivity(QStringLiteral("two"), 0);
    QCoreApplication::processEvents();
    QCOMPARE(unit.journal(QStringLiteral("/^framework (started|closed)/")),
             QStringList({QStringLiteral("framework started one"),
                          QStringLiteral("framework closed one"),
                          QStringLiteral("framework started two")}));
    manager.remove(&one);
    manager.remove(&two);
}

void TestSimActivityManager::startOfARunningActivityOnlyRestartsIt()
{
    TestUnit unit;
    TestActivity activity(QStringLiteral("one"));
    SimActivityManager &manager = unit.framework().activities();
    manager.add(&activity);
    QWidget ui(&unit.screen());
    activity.getProperty()->setUiObj(&ui);
    manager.startActivity(QStringLiteral("one"), 0);
    manager.startActivity(QStringLiteral("one"), 1);
    QCoreApplication::processEvents();
    QCOMPARE(activity.calls,
             QStringList({QStringLiteral("onCreat"), QStringLiteral("onStart"),
                          QStringLiteral("onStart")}));
    QCOMPARE(manager.running(), QStringList(QStringLiteral("one")));
    QCOMPARE(unit.screen().children().last(), &ui);
    manager.remove(&activity);
}

void TestSimActivityManager::closeOfAnActivityThatDoesNotRunDoesNothing()
{
    TestUnit unit;
    TestActivity activity(QStringLiteral("one"));
    SimActivityManager &manager = unit.framework().activities();
    manager.add(&activity);
    QCOMPARE(manager.closeActivity(QStringLiteral("one")), 0);
    QCoreApplication::processEvents();
    QCOMPARE(activity.calls, QStringList());
    manager.remove(&activity);
}

void TestSimActivityManager::unknownNamesAreRefused()
{
    TestUnit unit;
    SimActivityManager &manager = unit.framework().activities();
    QCOMPARE(manager.startActivity(QStringLiteral("none"), 0), -1);
    QCOMPARE(manager.closeActivity(QStringLiteral("none")), -1);
    QCOMPARE(unit.journal(QStringLiteral("framework unknown activity none")).size(), 2);
}

void TestSimActivityManager::missingModulePreventsTheStart()
{
    TestUnit unit;
    TestActivity activity(QStringLiteral("one"), {QStringLiteral("radio")});
    SimActivityManager &manager = unit.framework().activities();
    manager.add(&activity);
    manager.startActivity(QStringLiteral("one"), 0);
    QCoreApplication::processEvents();
    QCOMPARE(activity.calls, QStringList());
    QCOMPARE(unit.journal(QStringLiteral("missing")),
             QStringList(QStringLiteral("framework missing module radio")));
    manager.remove(&activity);
}

void TestSimActivityManager::emptyModuleNameIsNoModule()
{
    TestUnit unit;
    TestActivity activity(QStringLiteral("one"), {QString()});
    SimActivityManager &manager = unit.framework().activities();
    manager.add(&activity);
    manager.startActivity(QStringLiteral("one"), 0);
    QCoreApplication::processEvents();
    QCOMPARE(manager.running(), QStringList(QStringLiteral("one")));
    manager.remove(&activity);
}

void TestSimActivityManager::closeTopClosesTheLatest()
{
    TestUnit unit;
    TestActivity one(QStringLiteral("one"));
    TestActivity two(QStringLiteral("two"));
    SimActivityManager &manager = unit.framework().activities();
    QVERIFY(!manager.closeTopActivity());
    manager.add(&one);
    manager.add(&two);
    manager.startActivity(QStringLiteral("one"), 0);
    manager.startActivity(QStringLiteral("two"), 0);
    QCoreApplication::processEvents();
    QVERIFY(manager.closeTopActivity());
    QCoreApplication::processEvents();
    QCOMPARE(manager.running(), QStringList(QStringLiteral("one")));
    manager.remove(&one);
    manager.remove(&two);
}

void TestSimActivityManager::closeAllClosesTheLatestFirst()
{
    TestUnit unit;
    TestActivity one(QStringLiteral("one"));
    TestActivity two(QStringLiteral("two"));
    SimActivityManager &manager = unit.framework().activities();
    manager.add(&one);
    manager.add(&two);
    manager.startActivity(QStringLiteral("one"), 0);
    manager.startActivity(QStringLiteral("two"), 0);
    QCoreApplication::processEvents();
    manager.closeAll();
    QCOMPARE(unit.journal(QStringLiteral("framework closed")),
             QStringList(
                 {QStringLiteral("framework closed two"), QStringLiteral("framework closed one")}));
    manager.remove(&one);
    manager.remove(&two);
}

void TestSimActivityManager::removeClosesAtOnce()
{
    TestUnit unit;
    TestActivity activity(QStringLiteral("one"));
    SimActivityManager &manager = unit.framework().activities();
    manager.add(&activity);
    manager.startActivity(QStringLiteral("one"), 0);
    QCoreApplication::processEvents();
    manager.remove(&activity);
    QCOMPARE(activity.calls.last(), QStringLiteral("onDestory"));
    QCOMPARE(manager.startActivity(QStringLiteral("one"), 0), -1);
}

void TestSimActivityManager::keepsTheArgument()
{
    TestUnit unit;
    TestActivity activity(QStringLiteral("one"));
    SimActivityManager &manager = unit.framework().activities();
    manager.add(&activity);
    QCOMPARE(manager.argument(QStringLiteral("one")), 0);
    manager.startActivity(QStringLiteral("one"), 5);
    QCoreApplication::processEvents();
    QCOMPARE(manager.argument(QStringLiteral("one")), 5);
    manager.remove(&activity);
}

QTEST_MAIN(TestSimActivityManager)
#include "tst_simactivitymanager.moc"
