#include "simulator/simulator.h"

#include "simulator/window/hardkey.h"
#include "simulator/window/screen.h"

#include "testsimulator.h"

#include "kvappframework/activitymanager.h"
#include "kvappframework/uimanager.h"
#include "support/testmain.h"

#include <QtTest>

using namespace simulator;
using kvappframework::UIHerarchy;
using kvappframework::UIManager;

class TestSimulatorClass : public QObject
{
    Q_OBJECT

private slots:
    void factoryKeyOpensTheActivityByTheInfoModule();
    void homeKeyClosesIt();
    void homeKeyWithNothingOpenDoesNothing();
    void homeKeyLeavesPagesOfTheirOwn();
    void homeScreenHidesUnderAnActivity();
    void homeScreenFollowsTheStorage();
    void touchedSlotIsPluggedAndPulled();
    void touchedSlotSaysWhyItCannotBePlugged();
    void rebootShowsTheBootScreenAndComesBack();
    void rebootAskedByTheActivityItself();
    void rebootStartsWithFreshVariables();
    void rebootRemovesPagesOfTheirOwn();
    void rebootRemovesWhatNobodyDeletes();
    void rebootWithNothingOpenShowsTheHomeScreen();
    void rebootWhileBootingIsOne();
    void keysAndTouchesMeanNothingWhileBooting();
    void rebootTakesTheUnitsTime();
    void rebootBringsTheLastStartedActivityBack();
};

void TestSimulatorClass::factoryKeyOpensTheActivityByTheInfoModule()
{
    TestSimulator unit;
    QCoreApplication::processEvents();
    unit.run("mark");
    QCOMPARE(unit.errorOf("key FACTORY"), QString());
    QCOMPARE(unit.errorOf("expect \"key FACTORY\""), QString());
    QCOMPARE(unit.errorOf("expect \"info factory debug requested\""), QString());
    QCOMPARE(unit.errorOf("expect \"framework start factorydebug 0\""), QString());
    QCOMPARE(unit.errorOf("see \"test activity\""), QString());
}

void TestSimulatorClass::homeKeyClosesIt()
{
    TestSimulator unit;
    unit.openActivity();
    QCOMPARE(unit.errorOf("key HOME"), QString());
    QCOMPARE(unit.errorOf("expect \"framework closed factorydebug\""), QString());
    QCOMPARE(unit.errorOf("unseen \"test activity\""), QString());
    QCOMPARE(unit.errorOf("see \"Simulated head unit\""), QString());
}

void TestSimulatorClass::homeKeyWithNothingOpenDoesNothing()
{
    TestSimulator unit;
    QCoreApplication::processEvents();
    unit.run("mark");
    QCOMPARE(unit.errorOf("key HOME"), QString());
    QCoreApplication::processEvents();
    QCOMPARE(unit.journal().lines("framework"), QStringList());
    QCOMPARE(unit.errorOf("see \"Simulated head unit\""), QString());
}

void TestSimulatorClass::homeKeyLeavesPagesOfTheirOwn()
{
    TestSimulator unit;
    unit.openActivity();
    QCOMPARE(unit.errorOf("press page"), QString());
    QCOMPARE(unit.errorOf("see \"page of its own\""), QString());
    QCOMPARE(unit.errorOf("unseen \"test activity\""), QString());
    QCOMPARE(unit.errorOf("key HOME"), QString());
    QCOMPARE(unit.errorOf("expect \"framework closed factorydebug\""), QString());
    QCOMPARE(unit.errorOf("see \"page of its own\""), QString());
    QCOMPARE(unit.errorOf("unseen \"Simulated head unit\""), QString());
    QCOMPARE(unit.errorOf("absent \"trace ~TestPage\""), QString());
    // It lies over the activity that is opened next, too.
    unit.openActivity();
    QCOMPARE(unit.errorOf("see \"page of its own\""), QString());
    QCOMPARE(unit.errorOf("unseen \"test activity\""), QString());
}

void TestSimulatorClass::homeScreenHidesUnderAnActivity()
{
    TestSimulator unit;
    QCOMPARE(unit.errorOf("see \"Simulated head unit\""), QString());
    unit.openActivity();
    QCOMPARE(unit.errorOf("unseen \"Simulated head unit\""), QString());
}

void TestSimulatorClass::homeScreenFollowsTheStorage()
{
    TestSimulator unit;
    QCOMPARE(unit.errorOf("unseen plugged"), QString());
    QCOMPARE(unit.errorOf("plug usb0"), QString());
    QCOMPARE(unit.errorOf("see plugged"), QString());
    QCOMPARE(unit.errorOf("pull usb0"), QString());
    QCOMPARE(unit.errorOf("unseen plugged"), QString());
}

void TestSimulatorClass::touchedSlotIsPluggedAndPulled()
{
    TestSimulator unit;
    for (const char *name : {"usb0", "usb1", "sd0", "sd1"}) {
        const QString slot(name);
        QCOMPARE(unit.errorOf("press " + slot), QString());
        QCOMPARE(unit.journal().lines("storage").constLast(),
                 QString("storage plug %1 /media/%1").arg(slot));
        QVERIFY(QFileInfo(unit.path("/media/" + slot)).isDir());
    }
    QVERIFY(unit.run("look").lines.contains(
        "button sd0 408 356 158 86 enabled SD0 plugged \"touch to pull\""));
    QCOMPARE(unit.errorOf("press sd0"), QString());
    QCOMPARE(unit.journal().lines("storage").constLast(), QString("storage pull sd0 /media/sd0"));
    QVERIFY(!QFileInfo::exists(unit.path("/media/sd0")));
    QVERIFY(unit.run("look").lines.contains(
        "button sd0 408 356 158 86 enabled SD0 empty \"touch to plug\""));
    unit.openActivity();
    QCOMPARE(unit.errorOf("press sd0"), QString("the button \"sd0\" is hidden"));
}

void TestSimulatorClass::touchedSlotSaysWhyItCannotBePlugged()
{
    TestSimulator unit;
    const QString inTheWay = unit.path("/media/usb0");
    QVERIFY(QDir().mkpath(inTheWay));
    QCOMPARE(unit.errorOf("press usb0"), QString());
    QCOMPARE(unit.journal().lines("storage"), QStringList());
    QCOMPARE(unit.errorOf("see \"cannot become a link to the stick in slot \\\"usb0\\\"\""),
             QString());
    QVERIFY(QDir().rmdir(inTheWay));
    QCOMPARE(unit.errorOf("press usb0"), QString());
    QCOMPARE(unit.errorOf("unseen \"cannot become\""), QString());
    QCOMPARE(unit.journal().lines("storage"), QStringList("storage plug usb0 /media/usb0"));
}

void TestSimulatorClass::rebootShowsTheBootScreenAndComesBack()
{
    TestSimulator unit(10.0);
    unit.openActivity();
    QCOMPARE(unit.errorOf("reboot"), QString());
    QCOMPARE(unit.errorOf("expect \"mcu reboot\""), QString());
    QCOMPARE(unit.errorOf("expect \"unit reboot\""), QString());
    QCOMPARE(unit.errorOf("expect \"framework closed factorydebug\""), QString());
    QCOMPARE(unit.errorOf("expect \"trace ~FactoryDebugctivity\""), QString());
    QCOMPARE(unit.errorOf("see Starting"), QString());
    QCOMPARE(unit.errorOf("expect \"unit booted\" 20000"), QString());
    QCOMPARE(unit.errorOf("expect \"framework started factorydebug\""), QString());
    QCOMPARE(unit.errorOf("see \"test activity\""), QString());
    QCOMPARE(unit.errorOf("unseen Starting"), QString());
}

void TestSimulatorClass::rebootAskedByTheActivityItself()
{
    TestSimulator unit(10.0);
    unit.openActivity();
    QCOMPARE(unit.errorOf("press restart"), QString());
    // The activity goes on until its own event handler is through.
    QCOMPARE(unit.errorOf("expect \"mcu reboot\""), QString());
    QCOMPARE(unit.errorOf("expect \"trace still here\""), QString());
    QCOMPARE(unit.errorOf("expect \"framework closed factorydebug\""), QString());
    QCOMPARE(unit.errorOf("expect \"unit booted\" 20000"), QString());
    QCOMPARE(unit.errorOf("see \"test activity\""), QString());
}

void TestSimulatorClass::rebootStartsWithFreshVariables()
{
    TestSimulator unit(10.0);
    unit.openActivity();
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(unit.errorOf("press count"), QString());
        QCOMPARE(unit.errorOf("press count"), QString());
        QCOMPARE(unit.errorOf("see \"/^presses: 2$/\""), QString());
        QCOMPARE(unit.errorOf("reboot"), QString());
        QCOMPARE(unit.errorOf("expect \"unit booted\" 20000"), QString());
        QCOMPARE(unit.errorOf("visible count"), QString());
    }
}

void TestSimulatorClass::rebootRemovesPagesOfTheirOwn()
{
    TestSimulator unit(10.0);
    unit.openActivity();
    QCOMPARE(unit.errorOf("press page"), QString());
    QCOMPARE(unit.errorOf("see \"page of its own\""), QString());
    QCOMPARE(unit.errorOf("reboot"), QString());
    QCOMPARE(unit.errorOf("expect \"trace ~TestPage\""), QString());
    QCOMPARE(unit.errorOf("expect \"unit booted\" 20000"), QString());
    QCOMPARE(unit.errorOf("see \"test activity\""), QString());
}

void TestSimulatorClass::rebootRemovesWhatNobodyDeletes()
{
    TestSimulator unit(10.0);
    unit.openActivity();
    QList<QPointer<QWidget>> left;
    for (int layer = 0; layer <= 3; ++layer) {
        left.append(new QWidget(UIManager::getUIHerarchy(UIHerarchy(layer))));
    }
    QCOMPARE(unit.errorOf("reboot"), QString());
    QCOMPARE(unit.errorOf("expect \"unit booted\" 20000"), QString());
    QCOMPARE(left.count(nullptr), left.size());
    QCOMPARE(unit.errorOf("see \"test activity\""), QString());
}

void TestSimulatorClass::rebootWithNothingOpenShowsTheHomeScreen()
{
    TestSimulator unit(10.0);
    QCOMPARE(unit.errorOf("reboot"), QString());
    QCOMPARE(unit.errorOf("see Starting"), QString());
    QCOMPARE(unit.errorOf("expect \"unit booted\" 20000"), QString());
    QCOMPARE(unit.errorOf("unseen Starting"), QString());
    QCOMPARE(unit.errorOf("see \"Press FACTORY\""), QString());
    QCOMPARE(unit.errorOf("absent \"framework start\""), QString());
}

void TestSimulatorClass::rebootWhileBootingIsOne()
{
    TestSimulator unit(10.0);
    unit.openActivity();
    QCOMPARE(unit.errorOf("reboot"), QString());
    QCOMPARE(unit.errorOf("see Starting"), QString());
    QCOMPARE(unit.errorOf("reboot"), QString());
    QCOMPARE(unit.errorOf("expect \"unit booted\" 20000"), QString());
    QCOMPARE(unit.errorOf("see \"test activity\""), QString());
    QCOMPARE(unit.journal().lines("/^unit reboot$/").size(), 1);
}

void TestSimulatorClass::keysAndTouchesMeanNothingWhileBooting()
{
    TestSimulator unit(10.0);
    unit.openActivity();
    QCOMPARE(unit.errorOf("reboot"), QString());
    QCOMPARE(unit.errorOf("see Starting"), QString());
    unit.run("mark");
    const QString refusal = "the unit is starting and takes no key";
    QCOMPARE(unit.errorOf("key FACTORY"), refusal);
    QCOMPARE(unit.errorOf("key HOME"), refusal);
    // Nor by a click beside the screen.
    unit.simulator().bezel().factoryKey().click();
    unit.simulator().bezel().homeKey().click();
    QCOMPARE(unit.errorOf("tap 100 120"), QString());
    QCOMPARE(unit.errorOf("absent key"), QString());
    QCOMPARE(unit.errorOf("expect \"unit booted\" 20000"), QString());
    QCOMPARE(unit.errorOf("see \"test activity\""), QString());
}

void TestSimulatorClass::rebootTakesTheUnitsTime()
{
    for (const double factor : {4.0, 20.0}) {
        TestSimulator unit(factor);
        QElapsedTimer time;
        time.start();
        QCOMPARE(unit.errorOf("reboot"), QString());
        QCOMPARE(unit.errorOf("expect \"unit booted\" 60000"), QString());
        // The boot screen stands for two seconds of the unit's time.
        QVERIFY2(time.elapsed() >= 2000 / factor, qPrintable(QString::number(time.elapsed())));
    }
}

void TestSimulatorClass::rebootBringsTheLastStartedActivityBack()
{
    TestSimulator unit(10.0);
    unit.openActivity();
    kvappframework::ActivityManager::self()->startActivity("usb", 3);
    QCOMPARE(unit.errorOf("see \"Started with argument 3\""), QString());
    QCOMPARE(unit.errorOf("reboot"), QString());
    QCOMPARE(unit.errorOf("expect \"unit booted\" 20000"), QString());
    QCOMPARE(unit.errorOf("see \"Started with argument 3\""), QString());
}

FACTORY_TEST_MAIN(TestSimulatorClass)
#include "tst_simulator.moc"
