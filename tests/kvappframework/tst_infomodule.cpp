#include "kvappframework/sim/infomodule.h"

#include "kvappframework/eventprivatedata.h"
#include "kvappframework/modulemanager.h"
#include "kvappframework/sim/simactivitymanager.h"
#include "kvappframework/sim/simmodulemanager.h"
#include "kvappframework/sysevent.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "testactivity.h"

#include <QtTest>

using namespace kvappframework;

class TestInfoModule : public QObject
{
    Q_OBJECT

private slots:
    void keepsTheRuleItReceivesAndStartsByIt();
    void sameRuleTwiceStartsOnce();
    void ruleWithoutItsModuleStartsNothing();
    void otherEventsAreNoRules_data();
    void otherEventsAreNoRules();
};

namespace
{

void postRule(const QString &activity, const QString &module,
              int eventId = SysEvent::EventImplicitRule)
{
    const auto info = ModuleManager::self()->getModule(QStringLiteral("info"));
    const auto data = QSharedPointer<EventPrivateData>::create(activity, QVariant(module));
    QCoreApplication::postEvent(
        info->getReceiver(),
        new SysEvent(UserType, eventId, QVariant(false), SysEvent::NoArgument, data));
    QCoreApplication::processEvents();
}

QStringList starts(const TestUnit &unit)
{
    return unit.journal(QStringLiteral("framework start "));
}

} // namespace

void TestInfoModule::keepsTheRuleItReceivesAndStartsByIt()
{
    TestUnit unit;
    TestActivity activity(QStringLiteral("one"));
    unit.framework().activities().add(&activity);
    postRule(QStringLiteral("one"), QStringLiteral("mediaplay"));
    QCOMPARE(unit.journal(QStringLiteral("/^info rule/")),
             QStringList(QStringLiteral("info rule one mediaplay")));
    unit.framework().requestFactoryDebug();
    QCoreApplication::processEvents();
    QCOMPARE(unit.framework().activities().running(), QStringList(QStringLiteral("one")));
    unit.framework().activities().remove(&activity);
}

void TestInfoModule::sameRuleTwiceStartsOnce()
{
    TestUnit unit;
    postRule(QStringLiteral("one"), QStringLiteral("mediaplay"));
    postRule(QStringLiteral("one"), QStringLiteral("mediaplay"));
    unit.framework().requestFactoryDebug();
    QCOMPARE(starts(unit), QStringList(QStringLiteral("framework start one 0")));
}

void TestInfoModule::ruleWithoutItsModuleStartsNothing()
{
    TestUnit unit;
    unit.framework().modules().remove(QStringLiteral("mediaplay"));
    postRule(QStringLiteral("one"), QStringLiteral("mediaplay"));
    unit.framework().requestFactoryDebug();
    QCOMPARE(starts(unit), QStringList());
    QCOMPARE(unit.journal(QStringLiteral("missing")),
             QStringList(QStringLiteral("info missing module mediaplay")));
}

void TestInfoModule::otherEventsAreNoRules_data()
{
    QTest::addColumn<int>("eventId");
    QTest::newRow("13") << 13;
    QTest::newRow("15") << 15;
    QTest::newRow("0") << 0;
}

void TestInfoModule::otherEventsAreNoRules()
{
    QFETCH(int, eventId);
    TestUnit unit;
    postRule(QStringLiteral("one"), QStringLiteral("mediaplay"), eventId);
    unit.framework().requestFactoryDebug();
    QCOMPARE(starts(unit), QStringList());
    QCOMPARE(unit.journal(QStringLiteral("ignored")),
             QStringList(QStringLiteral("info ignored event %1").arg(eventId)));
}

FACTORY_TEST_MAIN(TestInfoModule)
#include "tst_infomodule.moc"
