#include "simulator/framework/usbactivity.h"

#include "testsimulator.h"

#include "kvappframework/activitymanager.h"
#include "kvappframework/activityproperty.h"
#include "support/testmain.h"

#include <QtTest>

using namespace simulator;

class TestUsbActivity : public QObject
{
    Q_OBJECT

private slots:
    void isCalledUsb();
    void saysWhatItWasStartedWith();
    void anotherStartChangesTheArgument();
    void homeLeavesIt();
};

void TestUsbActivity::isCalledUsb()
{
    UsbActivity activity;
    QCOMPARE(activity.getProperty()->getName(), QString("usb"));
}

void TestUsbActivity::saysWhatItWasStartedWith()
{
    TestSimulator unit;
    QCOMPARE(kvappframework::ActivityManager::self()->startActivity("usb", 7), 0);
    QCOMPARE(unit.errorOf("see \"USB media (simulated)\""), QString());
    QCOMPARE(unit.errorOf("see \"Started with argument 7\""), QString());
}

void TestUsbActivity::anotherStartChangesTheArgument()
{
    TestSimulator unit;
    kvappframework::ActivityManager::self()->startActivity("usb", 7);
    kvappframework::ActivityManager::self()->startActivity("usb", 0);
    QCOMPARE(unit.errorOf("see \"Started with argument 0\""), QString());
}

void TestUsbActivity::homeLeavesIt()
{
    TestSimulator unit;
    kvappframework::ActivityManager::self()->startActivity("usb", 0);
    QCOMPARE(unit.errorOf("see \"USB media\""), QString());
    QCOMPARE(unit.errorOf("key HOME"), QString());
    QCOMPARE(unit.errorOf("expect \"framework closed usb\""), QString());
    QCOMPARE(unit.errorOf("unseen \"USB media\""), QString());
    QCOMPARE(unit.errorOf("see \"Simulated head unit\""), QString());
}

FACTORY_TEST_MAIN(TestUsbActivity)
#include "tst_usbactivity.moc"
