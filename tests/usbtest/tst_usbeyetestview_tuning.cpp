#include "usbtest/usbeyetestview.h"

#include "eyepage.h"

#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QRadioButton>
#include <QtTest>

class TestUsbEyeTestViewTuning : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // PHY tuning
    void usePhySwitchesTheModeAndReads();
    void usePhyClearedSwitchesBack();
    void swingStepping_fromPlusZeroToMinusZeroAndBack();
    void swingSteppingEndsAtPlusAndMinus31();
    void swingWalkShowsEveryValue();
    void unknownSwingLeavesTheLabel();
    void swingNeverSetIsSteppedAsZero();
    void disconnectSteppingStopsAtItsEndsAndShows1f();
    void disconnectIsShownWithoutSign();
    void readButtonReadsTheChosenPort();
    void choosingAParameterReads();
    void writingTheSwingOfPort1KeepsPort0sByteAndSetsTheUpperBytes();
    void writingTheSwingOfPort0KeepsPort1sByteAndSetsTheUpperBytes();
    void swingsUpperBytesKeepTheirTopBits();
    void writingTheDisconnectValueOpensTheDebugAccessFirst_data();
    void writingTheDisconnectValueOpensTheDebugAccessFirst();
    void longValueIsWrittenSmaller();
    void valueReadOfOnePortIsWrittenToTheOther();
};

void TestUsbEyeTestViewTuning::initTestCase()
{
    applyUnitsAppearance();
}

void TestUsbEyeTestViewTuning::usePhySwitchesTheModeAndReads()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    unit.unit().memory().write(swingRegister, 0x7F7F4045); // changed since the page opened
    const int lines = unit.journal().size();
    page.tap("usePhy");
    QVERIFY(page.isVisible("phyGroup"));
    QVERIFY(!page.isVisible("patternGroup"));
    QVERIFY(page.isVisible("read"));
    QVERIFY(!page.find<KvIconButton>("read")->disableState());
    QCOMPARE(page.find<KvIconButton>("write")->displayText(), QStringLiteral("Write"));
    QVERIFY(!page.find<QRadioButton>("deviceMode")->isEnabled());
    QCOMPARE(page.value(), QStringLiteral("5"));
    QCOMPARE(since(unit, lines),
             QStringList({QStringLiteral("memory open"), QStringLiteral("memory map 9C000000"),
                          QStringLiteral("memory close"),
                          QStringLiteral("memory unmap 9C000190 refused: Invalid argument")}));
}

void TestUsbEyeTestViewTuning::usePhyClearedSwitchesBack()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    page.tap("usePhy");
    const int lines = unit.journal().size();
    page.tap("usePhy");
    QVERIFY(!page.isVisible("phyGroup"));
    QVERIFY(page.isVisible("patternGroup"));
    QVERIFY(!page.isVisible("read"));
    QVERIFY(page.find<KvIconButton>("read")->disableState());
    QCOMPARE(page.find<KvIconButton>("write")->displayText(), QStringLiteral("Set Test Mode"));
    QVERIFY(page.find<QRadioButton>("deviceMode")->isEnabled());
    QCOMPARE(since(unit, lines), QStringList());
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

void TestUsbEyeTestViewTuning::disconnectIsShownWithoutSign()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(0x9C004A9C, 0xFFFFFFFE);
    EyePage page(unit);
    page.tap("usePhy");
    page.tap("disconnectLevel");
    QCOMPARE(page.value(), QStringLiteral("fffffffe"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("ffffffff"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("ffffffff"));
}

void TestUsbEyeTestViewTuning::readButtonReadsTheChosenPort()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(swingRegister, 0x7F7F6142);
    unit.unit().memory().write(0x9C004A9C, 0xA0);
    unit.unit().memory().write(0x9C004B1C, 0xB1);
    EyePage page(unit);
    page.tap("usePhy");
    QCOMPARE(page.value(), QStringLiteral("2"));
    page.tap("port1");
    QCOMPARE(page.value(), QStringLiteral("2")); // a port is looked at with the next read
    page.tap("read");
    QCOMPARE(page.value(), QStringLiteral("-1"));
    page.tap("disconnectLevel");
    QCOMPARE(page.value(), QStringLiteral("b1"));
    page.tap("port0");
    page.tap("read");
    QCOMPARE(page.value(), QStringLiteral("a0"));
}

void TestUsbEyeTestViewTuning::choosingAParameterReads()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    page.tap("usePhy");
    int lines = unit.journal().size();
    page.tap("disconnectLevel");
    QCOMPARE(since(unit, lines),
             QStringList({QStringLiteral("memory open"), QStringLiteral("memory map 9C004000"),
                          QStringLiteral("memory close"),
                          QStringLiteral("memory unmap 9C004A9C refused: Invalid argument")}));
    QCOMPARE(page.value(), QStringLiteral("10")); // 16, as in a new unit
    lines = unit.journal().size();
    page.tap("swing");
    QCOMPARE(since(unit, lines).at(1), QStringLiteral("memory map 9C000000"));
    QCOMPARE(page.value(), QStringLiteral("0"));
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

void TestUsbEyeTestViewTuning::writingTheSwingOfPort0KeepsPort1sByteAndSetsTheUpperBytes()
{
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(swingRegister, 0x00004251);
    EyePage page(unit);
    page.tap("usePhy");
    page.tap("decrease");
    page.tap("write");
    QCOMPARE(writes(unit),
             QStringList(QStringLiteral("memory write 9C000190 phySwing 00004251 -> 7F7F4250")));
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

void TestUsbEyeTestViewTuning::writingTheDisconnectValueOpensTheDebugAccessFirst_data()
{
    QTest::addColumn<QByteArray>("port");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("port 0")
        << QByteArray("port0")
        << QStringList({
               QStringLiteral("memory write 9C004A8C debugAccess0 A5A5A5A5 -> 00000001"),
               QStringLiteral("memory write 9C004A90 testMode0 A5A5A5A5 -> 00000007"),
               QStringLiteral("memory write 9C000088 debugGate A5A5A5A5 -> 00000000"),
               QStringLiteral("memory write 9C0000A0 debugSelect A5A5A5A5 -> 0004100C"),
               QStringLiteral("memory write 9C004A9C phyDisconnect0 A5A5A5A5 -> 12345675"),
           });
    QTest::newRow("port 1")
        << QByteArray("port1")
        << QStringList({
               QStringLiteral("memory write 9C004B0C debugAccess1 A5A5A5A5 -> 00000001"),
               QStringLiteral("memory write 9C004B10 testMode1 A5A5A5A5 -> 00000007"),
               QStringLiteral("memory write 9C000088 debugGate A5A5A5A5 -> 00000000"),
               QStringLiteral("memory write 9C0000A0 debugSelect A5A5A5A5 -> 0008100C"),
               QStringLiteral("memory write 9C004B1C phyDisconnect1 A5A5A5A5 -> 12345675"),
           });
}

void TestUsbEyeTestViewTuning::writingTheDisconnectValueOpensTheDebugAccessFirst()
{
    QFETCH(QByteArray, port);
    QFETCH(QStringList, expected);
    TestUnit unit(eyeSpeed);
    unit.unit().memory().write(0x9C004A9C, 0x12345674);
    unit.unit().memory().write(0x9C004B1C, 0x12345674);
    EyePage page(unit);
    page.tap("usePhy");
    page.tap(port.constData());
    page.tap("disconnectLevel");
    page.tap("increase");
    fill(unit);
    const TraceCapture capture;
    page.tap("write");
    QCOMPARE(writes(unit), expected);
    // One map for each write: nothing is read before.
    QCOMPARE(unit.journal(QStringLiteral("memory map")).size(), 1 + 1 + 1 + 5);
    QCOMPARE(capture.texts().constLast(),
             QStringLiteral("open iic debug usbPort: %1").arg(port == "port0" ? 0 : 1));
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
