#include "kvappframework/sim/simactivitymanager.h"

#include "support/testmain.h"
#include "support/testunit.h"
#include "testactivity.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>
#include <vector>

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

namespace
{

const QString oneName = QStringLiteral("one");
const QString twoName = QStringLiteral("two");

/// A unit whose manager knows the activities that are added here, for as long as this lives.
class Activities
{
public:
    ~Activities()
    {
        for (const auto &activity : m_added) {
            manager.remove(activity.get());
        }
    }

    TestActivity &add(const QString &name, const QStringList &dependModules = QStringList())
    {
        m_added.push_back(std::make_unique<TestActivity>(name, dependModules));
        manager.add(m_added.back().get());
        return *m_added.back();
    }

    /// Starts them one after the other, from the event loop as on the unit.
    void start(const QStringList &names)
    {
        for (const QString &name : names) {
            manager.startActivity(name, 0);
        }
        QCoreApplication::processEvents();
    }

    TestUnit unit;
    SimActivityManager &manager = unit.framework().activities();

private:
    std::vector<std::unique_ptr<TestActivity>> m_added;
};

} // namespace

void TestSimActivityManager::startIsCarriedOutFromTheEventLoop()
{
    Activities activities;
    SimActivityManager &manager = activities.manager;
    TestActivity &activity = activities.add(oneName);
    QSignalSpy started(&manager, &SimActivityManager::activityStarted);

    QCOMPARE(manager.startActivity(oneName, 7), 0);
    QCOMPARE(activity.calls, QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(activity.calls, QStringList({QStringLiteral("onCreat"), QStringLiteral("onStart")}));
    QCOMPARE(started.size(), 1);
    QCOMPARE(started.first(), QVariantList({oneName, 7}));
    QCOMPARE(activities.unit.journal(QStringLiteral("framework")),
             QStringList({QStringLiteral("framework start one 7"),
                          QStringLiteral("framework started one")}));
}

void TestSimActivityManager::closeIsCarriedOutFromTheEventLoop()
{
    Activities activities;
    SimActivityManager &manager = activities.manager;
    TestActivity &activity = activities.add(oneName);
    activities.start({oneName});
    activity.calls.clear();
    QSignalSpy closed(&manager, &SimActivityManager::activityClosed);

    QCOMPARE(manager.closeActivity(oneName), 0);
    QCOMPARE(activity.calls, QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(activity.calls, QStringList({QStringLiteral("onStop"), QStringLiteral("onDestory")}));
    QCOMPARE(closed.size(), 1);
    QCOMPARE(manager.running(), QStringList());
}

void TestSimActivityManager::requestsKeepTheirOrder()
{
    Activities activities;
    SimActivityManager &manager = activities.manager;
    activities.add(oneName);
    activities.add(twoName);
    manager.startActivity(oneName, 0);
    manager.closeActivity(oneName);
    manager.startActivity(twoName, 0);
    QCoreApplication::processEvents();
    QCOMPARE(activities.unit.journal(QStringLiteral("/^framework (started|closed)/")),
             QStringList({QStringLiteral("framework started one"),
                          QStringLiteral("framework closed one"),
                          QStringLiteral("framework started two")}));
}

void TestSimActivityManager::startOfARunningActivityOnlyRestartsIt()
{
    Activities activities;
    SimActivityManager &manager = activities.manager;
    TestActivity &activity = activities.add(oneName);
    QWidget ui(&activities.unit.screen());
    activity.getProperty()->setUiObj(&ui);
    manager.startActivity(oneName, 0);
    manager.startActivity(oneName, 1);
    QCoreApplication::processEvents();
    QCOMPARE(activity.calls,
             QStringList({QStringLiteral("onCreat"), QStringLiteral("onStart"),
                          QStringLiteral("onStart")}));
    QCOMPARE(manager.running(), QStringList(oneName));
    QCOMPARE(activities.unit.screen().children().last(), &ui);
}

void TestSimActivityManager::closeOfAnActivityThatDoesNotRunDoesNothing()
{
    Activities activities;
    SimActivityManager &manager = activities.manager;
    TestActivity &activity = activities.add(oneName);
    QCOMPARE(manager.closeActivity(oneName), 0);
    QCoreApplication::processEvents();
    QCOMPARE(activity.calls, QStringList());
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
    Activities activities;
    TestActivity &activity = activities.add(oneName, {QStringLiteral("radio")});
    activities.start({oneName});
    QCOMPARE(activity.calls, QStringList());
    QCOMPARE(activities.unit.journal(QStringLiteral("missing")),
             QStringList(QStringLiteral("framework missing module radio")));
}

void TestSimActivityManager::emptyModuleNameIsNoModule()
{
    Activities activities;
    SimActivityManager &manager = activities.manager;
    activities.add(oneName, {QString()});
    activities.start({oneName});
    QCOMPARE(manager.running(), QStringList(oneName));
}

void TestSimActivityManager::closeTopClosesTheLatest()
{
    Activities activities;
    SimActivityManager &manager = activities.manager;
    QVERIFY(!manager.closeTopActivity());
    activities.add(oneName);
    activities.add(twoName);
    activities.start({oneName, twoName});
    QVERIFY(manager.closeTopActivity());
    QCoreApplication::processEvents();
    QCOMPARE(manager.running(), QStringList(oneName));
}

void TestSimActivityManager::closeAllClosesTheLatestFirst()
{
    Activities activities;
    SimActivityManager &manager = activities.manager;
    activities.add(oneName);
    activities.add(twoName);
    activities.start({oneName, twoName});
    manager.closeAll();
    QCOMPARE(activities.unit.journal(QStringLiteral("framework closed")),
             QStringList(
                 {QStringLiteral("framework closed two"), QStringLiteral("framework closed one")}));
}

void TestSimActivityManager::removeClosesAtOnce()
{
    Activities activities;
    SimActivityManager &manager = activities.manager;
    TestActivity &activity = activities.add(oneName);
    activities.start({oneName});
    manager.remove(&activity);
    QCOMPARE(activity.calls.last(), QStringLiteral("onDestory"));
    QCOMPARE(manager.startActivity(oneName, 0), -1);
}

void TestSimActivityManager::keepsTheArgument()
{
    Activities activities;
    SimActivityManager &manager = activities.manager;
    activities.add(oneName);
    QCOMPARE(manager.argument(oneName), 0);
    manager.startActivity(oneName, 5);
    QCoreApplication::processEvents();
    QCOMPARE(manager.argument(oneName), 5);
}

FACTORY_TEST_MAIN(TestSimActivityManager)
#include "tst_simactivitymanager.moc"
