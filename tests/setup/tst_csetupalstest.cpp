#include "setup/csetupalstest.h"

#include "adjustbuttons.h"
#include "alspage.h"

#include "kvwidget/cboolbutton.h"
#include "service/calsdevice.h"
#include "service/datasavecontrol.h"
#include "service/setupstridconst.h"
#include "support/testmain.h"

#include <QSignalSpy>

#include <thread>

class TestCSetupALSTest : public QObject
{
    Q_OBJECT

private slots:
    void openingWritesBothThresholds();
    void day300Night300HoldEachOther();
    void day1000AndIncreaseDay();
    void night0AndDecreaseNight();
    void thresholdsOutsideTheRangeMoveBackOnly();
    void anotherIndexDoesNothing();
    void unknownIdIsIgnored_data();
    void unknownIdIsIgnored();

    void readingIsShown_data();
    void readingIsShown();
    void aBlockedScreenFindsOneReadingWaiting();
    void readingOfAnotherThreadIsQueued();
    void readingAfterThePageHasGone();

    void switchOpensAsTheDimmerSays_data();
    void switchOpensAsTheDimmerSays();
    void openingTheSwitchSendsNoSignal();
    void switchedOffItOpensAsTheDimmerSays();
};

namespace
{

using hardware::DayNight;

QString threshold(const char *mode, int value)
{
    return QStringLiteral("als %1 threshold %2").arg(QLatin1String(mode)).arg(value);
}

void setThresholds(Screen &screen, int day, int night)
{
    screen.unit.unit().dayNight().setThreshold(DayNight::Day, day);
    screen.unit.unit().dayNight().setThreshold(DayNight::Night, night);
}

} // namespace

void TestCSetupALSTest::openingWritesBothThresholds()
{
    Screen screen;
    setThresholds(screen, 321, 45);
    screen.open();
    QCOMPARE(screen.news(effects), QStringList({threshold("day", 321), threshold("night", 45)}));
    QCOMPARE(screen.text("dayText"), QStringLiteral("321"));
    QCOMPARE(screen.text("nightText"), QStringLiteral("45"));
}

void TestCSetupALSTest::day300Night300HoldEachOther()
{
    Screen screen;
    setThresholds(screen, 300, 300);
    screen.open();
    screen.news();
    screen.tap("decreaseDay");
    QCOMPARE(screen.text("dayText"), QStringLiteral("300"));
    screen.tap("increaseNight");
    QCOMPARE(screen.text("nightText"), QStringLiteral("300"));
    QCOMPARE(screen.news(effects),
             QStringList({loggedItem("CSetupALSTest", "condec"), threshold("day", 300),
                          loggedItem("CSetupALSTest", "hueinc"), threshold("night", 300)}));
    // Each may move away, and then the other may follow.
    screen.tap("increaseDay");
    screen.tap("increaseNight");
    QCOMPARE(screen.text("nightText"), QStringLiteral("301"));
}

void TestCSetupALSTest::day1000AndIncreaseDay()
{
    Screen screen;
    setThresholds(screen, 1000, 100);
    screen.open();
    screen.news();
    screen.tap("increaseDay");
    QCOMPARE(screen.text("dayText"), QStringLiteral("1000"));
    QCOMPARE(screen.news(effects),
             QStringList({loggedItem("CSetupALSTest", "coninc"), threshold("day", 1000)}));
}

void TestCSetupALSTest::night0AndDecreaseNight()
{
    Screen screen;
    setThresholds(screen, 300, 0);
    screen.open();
    screen.news();
    screen.tap("decreaseNight");
    QCOMPARE(screen.text("nightText"), QStringLiteral("0"));
    QCOMPARE(screen.news(effects),
             QStringList({loggedItem("CSetupALSTest", "huedec"), threshold("night", 0)}));
}

void TestCSetupALSTest::thresholdsOutsideTheRangeMoveBackOnly()
{
    Screen screen;
    setThresholds(screen, 2000, -5);
    screen.open();
    screen.tap("increaseDay");
    QCOMPARE(screen.text("dayText"), QStringLiteral("2000"));
    screen.tap("decreaseDay");
    QCOMPARE(screen.text("dayText"), QStringLiteral("1999"));
    screen.tap("decreaseNight");
    QCOMPARE(screen.text("nightText"), QStringLiteral("-5"));
    screen.tap("increaseNight");
    QCOMPARE(screen.text("nightText"), QStringLiteral("-4"));
}

void TestCSetupALSTest::anotherIndexDoesNothing()
{
    Screen screen;
    screen.open();
    screen.news();
    screen.page->setValue(0, 7);
    screen.page->setValue(3, 7);
    QCOMPARE(screen.news(), QStringList());
    QCOMPARE(screen.text("dayText"), QStringLiteral("300"));
    QCOMPARE(screen.text("nightText"), QStringLiteral("100"));
}

void TestCSetupALSTest::unknownIdIsIgnored_data()
{
    addIds({"CONINC", "briinc", "day"});
}

void TestCSetupALSTest::unknownIdIsIgnored()
{
    QFETCH(QString, id);
    Screen screen;
    screen.open();
    screen.news();
    RUN_CHECK(clickAdjustItem(screen.page, id));
    QCOMPARE(screen.news(effects), QStringList(loggedItem("CSetupALSTest", qPrintable(id))));
}

void TestCSetupALSTest::readingIsShown_data()
{
    QTest::addColumn<int>("reading");
    QTest::addColumn<QString>("text");
    QTest::newRow("-5") << -5 << QStringLiteral("Current:-5");
    QTest::newRow("0") << 0 << QStringLiteral("Current:0");
    QTest::newRow("300") << 300 << QStringLiteral("Current:300");
    QTest::newRow("highest") << 2147483647 << QStringLiteral("Current:2147483647");
    QTest::newRow("lowest") << std::numeric_limits<int>::min()
                            << QStringLiteral("Current:-2147483648");
}

void TestCSetupALSTest::readingIsShown()
{
    QFETCH(int, reading);
    Screen screen;
    screen.open();
    screen.unit.unit().lightSensor().report(77);
    QCOMPARE(screen.text("labCurrentVal"), QStringLiteral("Current:77"));
    screen.unit.unit().lightSensor().report(reading);
    QTEST(screen.text("labCurrentVal"), "text");
    // The layout makes room for it.
    QCoreApplication::sendPostedEvents();
    QVERIFY(isTextInside(screen.widget<QLabel>("labCurrentVal")));
}

void TestCSetupALSTest::aBlockedScreenFindsOneReadingWaiting()
{
    Screen screen;
    screen.open();
    QSignalSpy shown(CALSDevice::getInstance(), &CALSDevice::sigSensorValue);
    hardware::LightSensor &sensor = screen.unit.unit().lightSensor();
    sensor.startCurve(100, 10);
    QThread::msleep(1000); // The graphical thread does nothing for the time of 100 readings.
    sensor.stopCurve();
    QCOMPARE(shown.count(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(shown.count(), 1);
    QCOMPARE(screen.text("labCurrentVal"), QStringLiteral("Current:%1").arg(*sensor.reading()));
}

void TestCSetupALSTest::readingOfAnotherThreadIsQueued()
{
    Screen screen;
    screen.open();
    CALSDevice *service = CALSDevice::getInstance();
    std::thread([service] { emit service->sigSensorValue(5); }).join();
    QCOMPARE(screen.text("labCurrentVal"), QStringLiteral("Current:0"));
    QCoreApplication::processEvents();
    QCOMPARE(screen.text("labCurrentVal"), QStringLiteral("Current:5"));
}

void TestCSetupALSTest::readingAfterThePageHasGone()
{
    Screen screen;
    screen.open();
    delete screen.page;
    screen.unit.unit().lightSensor().report(12);
    screen.open();
    QCOMPARE(screen.text("labCurrentVal"), QStringLiteral("Current:0"));
    screen.unit.unit().lightSensor().report(13);
    QCOMPARE(screen.text("labCurrentVal"), QStringLiteral("Current:13"));
}

void TestCSetupALSTest::switchOpensAsTheDimmerSays_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("on");
    QTest::newRow("automatic") << SetupStrIdConst::setupDimmerItemAuto << true;
    QTest::newRow("automatic in capitals")
        << SetupStrIdConst::setupDimmerItemAuto.toUpper() << false;
    QTest::newRow("day") << QStringLiteral("day") << false;
    QTest::newRow("empty") << QString("") << false;
}

void TestCSetupALSTest::switchOpensAsTheDimmerSays()
{
    QFETCH(QString, stored);
    Screen screen;
    DataSaveControl::saveSettingData(SetupStrIdConst::setupDimmerItem, stored, QString());
    screen.open();
    QTEST(screen.widget<CBoolButton>("autoBtn")->state(), "on");
}

void TestCSetupALSTest::openingTheSwitchSendsNoSignal()
{
    Screen screen;
    // A missing setting has its default, which is automatic.
    screen.open();
    auto *autoSwitch = screen.widget<CBoolButton>("autoBtn");
    QVERIFY(autoSwitch->state());
    QCOMPARE(screen.news(QStringLiteral("als automatic")), QStringList());
    QSignalSpy released(autoSwitch, &CBoolButton::btnReleased);
    autoSwitch->setState(false);
    autoSwitch->setState(true);
    QCOMPARE(released.count(), 0);
    QCOMPARE(screen.news(QStringLiteral("als automatic")), QStringList());
}

void TestCSetupALSTest::switchedOffItOpensAsTheDimmerSays()
{
    Screen screen;
    screen.open();
    screen.tap("autoBtn");
    delete screen.page;
    screen.open();
    QVERIFY(screen.widget<CBoolButton>("autoBtn")->state());
    QVERIFY(!screen.unit.unit().dayNight().isAutomatic());
}

FACTORY_TEST_MAIN(TestCSetupALSTest)
#include "tst_csetupalstest.moc"
