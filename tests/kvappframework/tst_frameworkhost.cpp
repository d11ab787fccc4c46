#include "kvappframework/sim/frameworkhost.h"

#include "kvappframework/activitymanager.h"
#include "kvappframework/modulemanager.h"
#include "kvappframework/sim/simactivitymanager.h"
#include "kvappframework/sysevent.h"
#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

using namespace kvappframework;

class TestFrameworkHost : public QObject
{
    Q_OBJECT

private slots:
    void layersCoverTheScreenInTheirOrder();
    void desktopIsTheScreen();
    void modulesAreFoundByName();
    void beepReachesTheBeeper();
    void beepReachesItsReceiverToo();
    void otherActivityManagerCanBePutInPlace();
};

void TestFrameworkHost::layersCoverTheScreenInTheirOrder()
{
    TestUnit unit;
    const QObjectList children = unit.screen().children();
    int last = -1;
    for (int layer = 0; layer <= 3; ++layer) {
        QWidget *widget = UIManager::getUIHerarchy(UIHerarchy(layer));
        QCOMPARE(widget->geometry(), QRect(0, 0, 800, 480));
        QVERIFY(children.indexOf(widget) > last);
        last = children.indexOf(widget);
    }
}

void TestFrameworkHost::desktopIsTheScreen()
{
    const TestUnit unit;
    QCOMPARE(UIManager::getDeskTopRect(), QRect(0, 0, 800, 480));
}

void TestFrameworkHost::modulesAreFoundByName()
{
    const TestUnit unit;
    QVERIFY(!ModuleManager::self()->getModule(QStringLiteral("info")).isNull());
    QVERIFY(!ModuleManager::self()->getModule(QStringLiteral("mediaplay")).isNull());
    QVERIFY(ModuleManager::self()->getModule(QStringLiteral("none")).isNull());
}

void TestFrameworkHost::beepReachesTheBeeper()
{
    TestUnit unit;
    QObject receiver;
    QEvent beep(EventType_Beep);
    QCoreApplication::sendEvent(&receiver, &beep);
    QCOMPARE(unit.journal(QStringLiteral("beep")), QStringList(QStringLiteral("mcu beep 0")));
}

void TestFrameworkHost::beepReachesItsReceiverToo()
{
    class Receiver : public QObject
    {
    public:
        int beeps = 0;

    protected:
        bool event(QEvent *event) override
        {
            beeps += event->type() == EventType_Beep;
            return QObject::event(event);
        }
    };
    const TestUnit unit;
    Receiver receiver;
    QEvent beep(EventType_Beep);
    QCoreApplication::sendEvent(&receiver, &beep);
    QCOMPARE(receiver.beeps, 1);
}

void TestFrameworkHost::otherActivityManagerCanBePutInPlace()
{
    class Other : public ActivityManager
    {
    public:
        int startActivity(const QString &, int) override { return 11; }
        int closeActivity(const QString &) override { return 12; }
    };
    TestUnit unit;
    unit.framework().setActivityManager(QSharedPointer<Other>::create());
    QCOMPARE(ActivityManager::self()->startActivity(QString(), 0), 11);
    unit.framework().setActivityManager(nullptr);
    QCOMPARE(ActivityManager::self().data(), &unit.framework().activities());
}

FACTORY_TEST_MAIN(TestFrameworkHost)
#include "tst_frameworkhost.moc"
