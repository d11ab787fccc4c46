#include "usbtest/usbeyetestview.h"

#include "eyepage.h"

#include "support/runcheck.h"
#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QRadioButton>
#include <QtTest>

class TestUsbEyeTestView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // Construction and end
    void constructionInItsOrder();
    void constructionSleepsHalfASecondBehindTheLogoTest();
    void constructionReadsTheSwingOfPort0();
    void destructorTakesTheFormOffTheHostAndLeavesTheHardware();

    // Role
    void deviceModeHidesPort1AndUsePhy();
    void hostModeShowsThemAgain();
    void tuningDisablesDeviceMode();

    // Failures
    void missingMemoryLeavesZeroAndThePageAlive();
    void refusedMappingLeavesZeroAndThePageAlive();
    void failedReadWritesNoGarbageLater();

    void traces();
};

namespace
{

QElapsedTimer *sleepTimer = nullptr;

void watchSleep(QtMsgType, const QMessageLogContext &, const QString &message)
{
    if (message.contains(QLatin1String("start sleep"))) {
        sleepTimer->start();
    }
}

} // namespace

void TestUsbEyeTestView::initTestCase()
{
    applyUnitsAppearance();
}

void TestUsbEyeTestView::constructionInItsOrder()
{
    TestUnit unit(eyeSpeed);
    const TraceCapture capture;
    EyePage page(unit);
    QCOMPARE(capture.texts(),
             QStringList({
                 QStringLiteral("usbPort: 0"),
                 QStringLiteral("usbSpeed: 0"),
                 // Known from the pattern list, which is still empty.
                 QStringLiteral("testPattern: 0"),
                 QStringLiteral("useUphyPara: 0"),
                 QStringLiteral("usbUphyData: 0"),
                 QStringLiteral("state: 0"),
                 QStringLiteral("refreshMode isUPHY: false"),
                 QStringLiteral("start usb logo test"),
                 QStringLiteral("start sleep 500*1000u"),
             }));
    QCOMPARE(
        unit.journal(),
        QStringList({
            QStringLiteral("memory open"),
            QStringLiteral("memory map 9C000000"),
            QStringLiteral("memory close"),
            QStringLiteral("memory unmap 9C000190 refused: Invalid argument"),
            QStringLiteral("shell echo 1 > /sys/module/usbcore/parameters/usb_logo_test_start"),
        }));
    QVERIFY(unit.unit().usbPhy().isLogoTestOn());
}

void TestUsbEyeTestView::constructionSleepsHalfASecondBehindTheLogoTest()
{
    TestUnit unit;
    QElapsedTimer timer;
    sleepTimer = &timer;
    const QtMessageHandler former = qInstallMessageHandler(watchSleep);
    EyePage page(unit);
    qInstallMessageHandler(former);
    sleepTimer = nullptr;
    QVERIFY(timer.isValid());
    QVERIFY2(timer.elapsed() >= 500, qPrintable(QString::number(timer.elapsed())));
}

void TestUsbEyeTestView::constructionReadsTheSwingOfPort0()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(swingRegister, 0x7F7F4367);
    EyePage page(unit);
    // 0x67 is -7; 0x43, port 1's, would be 3.
    QCOMPARE(page.value(), QStringLiteral("-7"));
}

void TestUsbEyeTestView::destructorTakesTheFormOffTheHostAndLeavesTheHardware()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    page.tap("deviceMode");
    page.tap("fullSpeed");
    const QStringList hardware = unit.unit().usbPhy().description();
    const int lines = unit.journal().size();
    const TraceCapture capture;
    RUN_CHECK(page.checkGoesWith(page.view(), {"portGroup", "write"}));
    QCOMPARE(capture.texts(), QStringList(QStringLiteral("~USBEyeTestView")));
    QCOMPARE(unit.unit().usbPhy().description(), hardware);
    QVERIFY(unit.unit().usbPhy().isLogoTestOn());
    QCOMPARE(unit.journal().size(), lines);
}

void TestUsbEyeTestView::deviceModeHidesPort1AndUsePhy()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    page.tap("port1");
    fill(unit);
    page.tap("deviceMode");
    QVERIFY(page.isChecked("port0"));
    QVERIFY(!page.isVisible("port1"));
    QVERIFY(!page.isVisible("usePhy"));
    QCOMPARE(writes(unit),
             QStringList({QStringLiteral("memory write 9C00018C usbRole A5A5A5A5 -> 00070004"),
                          QStringLiteral("memory write 9C102900 usbDevice A5A5A5A5 -> 00000000")}));
    QCOMPARE(unit.unit().usbPhy().role(), QStringLiteral("device"));
}

void TestUsbEyeTestView::hostModeShowsThemAgain()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    page.tap("deviceMode");
    fill(unit);
    const int count = writes(unit).size();
    page.tap("hostMode");
    QVERIFY(page.isVisible("port1"));
    QVERIFY(page.isVisible("usePhy"));
    QVERIFY(page.isChecked("port0"));
    QCOMPARE(writes(unit).mid(count),
             QStringList(QStringLiteral("memory write 9C00018C usbRole A5A5A5A5 -> 00070007")));
    QCOMPARE(unit.unit().usbPhy().role(), QStringLiteral("host"));
}

void TestUsbEyeTestView::tuningDisablesDeviceMode()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    page.tap("usePhy");
    const int lines = unit.journal().size();
    const auto *device = page.find<QRadioButton>("deviceMode");
    unit.tap(device->mapTo(&unit.screen(), QPoint(24, 24)));
    QVERIFY(!device->isChecked());
    QCOMPARE(since(unit, lines), QStringList());
    page.tap("usePhy");
    page.tap("deviceMode");
    QVERIFY(device->isChecked());
}

void TestUsbEyeTestView::missingMemoryLeavesZeroAndThePageAlive()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(0x9C004A9C, 0x1234);
    EyePage page(unit);
    page.tap("usePhy");
    page.tap("disconnectLevel");
    QCOMPARE(page.value(), QStringLiteral("1234"));
    unit.unit().memoryDevice().setFault(hardware::MemoryDevice::Missing);
    page.tap("read");
    QCOMPARE(page.value(), QStringLiteral("0"));
    page.tap("write");
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("1"));
    QCOMPARE(writes(unit), QStringList());
    unit.unit().memoryDevice().setFault(hardware::MemoryDevice::NoFault);
    page.tap("read");
    QCOMPARE(page.value(), QStringLiteral("1234"));
}

void TestUsbEyeTestView::refusedMappingLeavesZeroAndThePageAlive()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memoryDevice().setFault(hardware::MemoryDevice::MapRefused);
    unit.unit().memory().write(0x9C004A9C, 0x1234);
    EyePage page(unit);
    page.tap("usePhy");
    page.tap("disconnectLevel");
    QCOMPARE(page.value(), QStringLiteral("0"));
    page.tap("write");
    page.tap("usePhy");
    page.tap("deviceMode");
    page.tap("hostMode");
    QCOMPARE(writes(unit), QStringList());
    QCOMPARE(unit.unit().memory().read(0x9C004A9C), 0x1234u);
    QVERIFY(page.isVisible("port1"));
}

void TestUsbEyeTestView::failedReadWritesNoGarbageLater()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(swingRegister, 0x7F7F4545);
    unit.unit().memoryDevice().setFault(hardware::MemoryDevice::Missing);
    EyePage page(unit);
    QCOMPARE(page.value(), QStringLiteral("0"));
    page.tap("usePhy");
    unit.unit().memoryDevice().setFault(hardware::MemoryDevice::NoFault);
    page.tap("write");
    // The value that could not be read is 0, and port 1's byte is as it was.
    QCOMPARE(unit.unit().memory().read(swingRegister), 0x7F7F4500u);
}

void TestUsbEyeTestView::traces()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    const TraceCapture capture;
    page.tap("usePhy");
    page.tap("decrease");
    page.tap("increase");
    page.tap("usePhy");
    QCOMPARE(capture.texts(),
             QStringList({
                 QStringLiteral("state: 2"),
                 QStringLiteral("usbPort: 0"),
                 QStringLiteral("usbSpeed: 0"),
                 QStringLiteral("testPattern: 4"),
                 QStringLiteral("useUphyPara: 0"),
                 QStringLiteral("usbUphyData: 64"),
                 QStringLiteral("refreshMode isUPHY: true"),
                 QStringLiteral("data: 96"),
                 QStringLiteral("data: 64"),
                 QStringLiteral("state: 0"),
                 QStringLiteral("refreshMode isUPHY: false"),
             }));
    QVERIFY(capture.lines().constFirst().contains(QLatin1String("[ usbeyetestview.cpp : ")));
}

FACTORY_TEST_MAIN(TestUsbEyeTestView)
#include "tst_usbeyetestview.moc"
