#include "usbtest/usbeyetestview.h"

#include "eyepage.h"

#include "support/testmain.h"

#include <QtTest>

class TestUsbEyeTestViewTuning : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void swingStepping_fromPlusZeroToMinusZeroAndBack();
    void swingSteppingEndsAtPlusAndMinus31();
    void swingWalkShowsEveryValue();
    void unknownSwingLeavesTheLabel();
    void swingNeverSetIsSteppedAsZero();
    void disconnectSteppingStopsAtItsEndsAndShows1f();
    void writingTheSwingOfPort1KeepsPort0sByteAndSetsTheUpperBytes();
    void swingsUpperBytesKeepTheirTopBits();
    void longValueIsWrittenSmaller();
    void valueReadOfOnePortIsWrittenToTheOther();
};

void TestUsbEyeTestViewTuning::initTestCase()
{
    applyUnitsAppearance();
}

void TestUsbEyeTestViewTuning::swingStepping_fromPlusZeroToMinusZeroAndBack()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    page.tap("usePhy");
    QCOMPARE(page.value(), QStringLiteral("0"));
    page.tap("decrease");
    QCOMPARE(page.value(), QStringLiteral("-0"));
    page.tap("decrease");
    QCOMPARE(page.value(), QStringLiteral("-1"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("-0"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("0"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("1"));
}

void TestUsbEyeTestViewTuning::swingSteppingEndsAtPlusAndMinus31()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(swingRegister, 0x7F7F7E5E); // port 1 -30, port 0 +30
    EyePage page(unit);
    page.tap("usePhy");
    for (const char *value : {"31", "31", "31"}) {
        page.tap("increase");
        QCOMPARE(page.value(), QString::fromLatin1(value));
    }
    page.tap("port1");
    page.tap("read");
    for (const char *value : {"-31", "-31", "-31"}) {
        page.tap("decrease");
        QCOMPARE(page.value(), QString::fromLatin1(value));
    }
}

void TestUsbEyeTestViewTuning::swingWalkShowsEveryValue()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(swingRegister, 0x5F);
    EyePage page(unit);
    page.tap("usePhy");
    QStringList shown(page.value());
    for (int step = 0; step < 63; ++step) {
        page.tap("decrease");
        shown.append(page.value());
    }
    QStringList expected;
    for (int value = 31; value >= 0; --value) {
        expected.append(QString::number(value));
    }
    expected.append(QStringLiteral("-0"));
    for (int value = -1; value >= -31; --value) {
        expected.append(QString::number(value));
    }
    QCOMPARE(shown, expected);
    for (int step = 62; step >= 0; --step) {
        page.tap("increase");
        QCOMPARE(page.value(), expected.at(step));
    }
}

void TestUsbEyeTestViewTuning::unknownSwingLeavesTheLabel()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(swingRegister, 0x43);
    EyePage page(unit);
    page.tap("usePhy");
    QCOMPARE(page.value(), QStringLiteral("3"));
    unit.unit().memory().write(swingRegister, 0x90);
    page.tap("read");
    QCOMPARE(page.value(), QStringLiteral("3"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("3"));
    page.tap("write");
    QCOMPARE(unit.unit().memory().read(swingRegister), 0x7F7F0090u);
}

void TestUsbEyeTestViewTuning::swingNeverSetIsSteppedAsZero()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(swingRegister, 0);
    EyePage page(unit);
    page.tap("usePhy");
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("0"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("1"));
    page.tap("read");
    page.tap("decrease");
    QCOMPARE(page.value(), QStringLiteral("-0"));
}

void TestUsbEyeTestViewTuning::disconnectSteppingStopsAtItsEndsAndShows1f()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(0x9C004A9C, 0);
    EyePage page(unit);
    page.tap("usePhy");
    page.tap("disconnectLevel");
    QCOMPARE(page.value(), QStringLiteral("0"));
    page.tap("decrease");
    QCOMPARE(page.value(), QStringLiteral("0"));
    for (int step = 1; step <= 31; ++step) {
        page.tap("increase");
        QCOMPARE(page.value(), QString::number(step, 16));
    }
    QCOMPARE(page.value(), QStringLiteral("1f"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("1f"));
    page.tap("decrease");
    QCOMPARE(page.value(), QStringLiteral("1e"));
}

void TestUsbEyeTestViewTuning::writingTheSwingOfPort1KeepsPort0sByteAndSetsTheUpperBytes()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    page.tap("usePhy");
    page.tap("port1");
    unit.unit().memory().write(swingRegister, 0x00004251);
    page.tap("read");
    QCOMPARE(page.value(), QStringLiteral("2"));
    page.tap("increase");
    page.tap("write");
    QCOMPARE(writes(unit),
             QStringList(QStringLiteral("memory write 9C000190 phySwing 00004251 -> 7F7F4351")));
    QCOMPARE(unit.unit().usbPhy().swing(0), QStringLiteral("+17"));
    QCOMPARE(unit.unit().usbPhy().swing(1), QStringLiteral("+3"));
    page.tap("read");
    QCOMPARE(page.value(), QStringLiteral("3"));
}

void TestUsbEyeTestViewTuning::swingsUpperBytesKeepTheirTopBits()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(swingRegister, 0x80804040);
    EyePage page(unit);
    page.tap("usePhy");
    page.tap("write");
    // Bits 16 to 22 and 24 to 30 are set; bits 23 and 31 are nobody's to clear.
    QCOMPARE(unit.unit().memory().read(swingRegister), 0xFFFF4040u);
}

void TestUsbEyeTestViewTuning::longValueIsWrittenSmaller()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    page.tap("usePhy");
    const auto pixels = [&](quint32 level) {
        unit.unit().memory().write(0x9C004A9C, level);
        page.tap("disconnectLevel");
        return page.find<QLabel>("value")->font().pixelSize();
    };
    QCOMPARE(pixels(0x12345), 24);
    QCOMPARE(page.value(), QStringLiteral("12345"));
    QCOMPARE(pixels(0x123456), 15);
    QCOMPARE(page.value(), QStringLiteral("123456"));
}

void TestUsbEyeTestViewTuning::valueReadOfOnePortIsWrittenToTheOther()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(swingRegister, 0x7F7F4049);
    EyePage page(unit);
    page.tap("usePhy");
    page.tap("port1");
    page.tap("write");
    QCOMPARE(unit.unit().memory().read(swingRegister), 0x7F7F4949u);
}

FACTORY_TEST_MAIN(TestUsbEyeTestViewTuning)
#include "tst_usbeyetestview_tuning.moc"
