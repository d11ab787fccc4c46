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

    void destructorTakesTheFormOffTheHostAndLeavesTheHardware();
    void tuningDisablesDeviceMode();
    void missingMemoryLeavesZeroAndThePageAlive();
    void failedReadWritesNoGarbageLater();
};

void TestUsbEyeTestView::initTestCase()
{
    applyUnitsAppearance();
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

FACTORY_TEST_MAIN(TestUsbEyeTestView)
#include "tst_usbeyetestview.moc"
