#include "usbtest/usbeyetestview.h"

#include "usbtest/ui_usbeyetest.h"

#include "formhost.h"

#include "kvwidget/kviconbutton.h"
#include "support/runcheck.h"
#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QtTest>

class TestUsbEyeTestView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // The form
    void geometry_data();
    void geometry();
    void firstLook();
    void texts();
    void radioButtonsAre48High();
    void styles();
    void checkedMarksAreToBeSeen();
    void nothingOverlapsOrIsClipped_data();
    void nothingOverlapsOrIsClipped();

    // Construction and end
    void constructionInItsOrder();
    void constructionSleepsHalfASecondBehindTheLogoTest();
    void constructionReadsTheSwingOfPort0();
    void destructorTakesTheFormOffTheHostAndLeavesTheHardware();

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
    void valueReadOfOnePortIsWrittenToTheOther();

    // Test modes
    void setTestMode_data();
    void setTestMode();
    void eyeDiagramCodeDiffersBySpeedAndSe0DoesNot();
    void noneIsLogged();
    void patternsAreSentAtOnce_data();
    void patternsAreSentAtOnce();
    void noneAndThePortsSendNothing();
    void fullSpeedChecksNoneAndHidesJKAndSe0();
    void highSpeedShowsThemAgain();
    void speedCommands_data();
    void speedCommands();
    void speedClickedFromElsewhereIsIgnored();
    void otherPortsRunNothing();

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

const double fast = 100;
const quint32 telling = 0xA5A5A5A5;
const quint32 swingRegister = 0x9C000190;

/// The page on a visible host that fills the unit's screen.
class Page : public FormHost
{
public:
    explicit Page(TestUnit &unit)
        : FormHost(unit)
    {
        m_view = new USBEyeTestView(host());
    }

    USBEyeTestView *view() { return m_view; }

    bool isVisible(const char *name) const { return find<QWidget>(name)->isVisible(); }
    bool isChecked(const char *name) const { return find<QAbstractButton>(name)->isChecked(); }
    QString value() const { return find<QLabel>("value")->text(); }

    /// Touches a button; check boxes and radio buttons on their mark.
    void tap(const char *name)
    {
        const auto *widget = find<QWidget>(name);
        QVERIFY2(widget->isVisible() && widget->isEnabled(), name);
        const bool hasMark = qobject_cast<const QAbstractButton *>(widget) != nullptr;
        const QPoint place = hasMark ? QPoint(24, widget->height() / 2) : widget->rect().center();
        m_unit.tap(widget->mapTo(&m_unit.screen(), place));
    }

private:
    USBEyeTestView *m_view;
};

QStringList writes(const TestUnit &unit)
{
    return unit.journal(QStringLiteral("/^memory write /"));
}

/// Fills the named registers with a value that no page writes, so that every write is seen.
void fill(TestUnit &unit)
{
    unit.unit().memory().fill(telling);
}

QStringList since(const TestUnit &unit, int count)
{
    return unit.journal().mid(count);
}

} // namespace

void TestUsbEyeTestView::initTestCase()
{
    applyUnitsAppearance();
}

void TestUsbEyeTestView::geometry_data()
{
    QTest::addColumn<QRect>("geometry");
    QTest::newRow("portGroup") << QRect(20, 146, 220, 145);
    QTest::newRow("speedGroup") << QRect(20, 301, 220, 145);
    QTest::newRow("phyGroup") << QRect(530, 76, 220, 196);
    QTest::newRow("swing") << QRect(10, 49, 220, 48);
    QTest::newRow("disconnectLevel") << QRect(10, 97, 220, 48);
    QTest::newRow("decrease") << QRect(10, 147, 40, 40);
    QTest::newRow("value") << QRect(50, 147, 78, 40);
    QTest::newRow("increase") << QRect(128, 147, 40, 40);
    QTest::newRow("patternGroup") << QRect(270, 146, 220, 304);
    QTest::newRow("usePhy") << QRect(530, 272, 220, 48);
    QTest::newRow("read") << QRect(530, 320, 210, 60);
    QTest::newRow("write") << QRect(530, 390, 210, 60);
    QTest::newRow("roleGroup") << QRect(20, 76, 480, 60);
}

void TestUsbEyeTestView::geometry()
{
    TestUnit unit(fast);
    Page page(unit);
    QTEST(page.find<QWidget>(QTest::currentDataTag())->geometry(), "geometry");
}

void TestUsbEyeTestView::firstLook()
{
    TestUnit unit(fast);
    Page page(unit);
    QCOMPARE(page.host()->size(), QSize(800, 480));
    for (const char *name : {"portGroup", "port0", "port1", "speedGroup", "highSpeed", "fullSpeed",
                             "patternGroup", "eyeDiagram", "testJ", "testK", "se0", "none",
                             "usePhy", "write", "roleGroup", "hostMode", "deviceMode"}) {
        QVERIFY2(page.isVisible(name), name);
    }
    for (const char *name : {"phyGroup", "read"}) {
        QVERIFY2(!page.isVisible(name), name);
    }
    for (const char *name : {"port0", "highSpeed", "swing", "none", "hostMode"}) {
        QVERIFY2(page.isChecked(name), name);
    }
    for (const char *name : {"port1", "fullSpeed", "disconnectLevel", "eyeDiagram", "testJ",
                             "testK", "se0", "usePhy", "deviceMode"}) {
        QVERIFY2(!page.isChecked(name), name);
    }
    QVERIFY(page.find<QGroupBox>("speedGroup")->isEnabled());
    QVERIFY(page.find<QRadioButton>("deviceMode")->isEnabled());
    QVERIFY(page.find<KvIconButton>("read")->disableState());
}

void TestUsbEyeTestView::texts()
{
    TestUnit unit(fast);
    Page page(unit);
    const QPair<const char *, const char *> buttons[] = {
        {"port0", "Port0"},
        {"port1", "Port1"},
        {"highSpeed", "High Speed"},
        {"fullSpeed", "Full Speed"},
        {"swing", "Swing"},
        {"disconnectLevel", "Disconnect"},
        {"eyeDiagram", "Eye Diagram"},
        {"testJ", "Test J"},
        {"testK", "Test K"},
        {"se0", "SE0"},
        {"none", "None"},
        {"usePhy", "Use UPHY"},
        {"hostMode", "Host Mode"},
        {"deviceMode", "Device Mode"},
    };
    for (const auto &button : buttons) {
        QCOMPARE(page.find<QAbstractButton>(button.first)->text(),
                 QString::fromLatin1(button.second));
    }
    QCOMPARE(page.find<QGroupBox>("portGroup")->title(), QStringLiteral("USB Port"));
    QCOMPARE(page.find<QGroupBox>("speedGroup")->title(), QStringLiteral("USB Speed"));
    QCOMPARE(page.find<QGroupBox>("phyGroup")->title(), QStringLiteral("UPHY Parameter"));
    QCOMPARE(page.find<QGroupBox>("patternGroup")->title(), QStringLiteral("Test Pattern"));
    QCOMPARE(page.find<QGroupBox>("roleGroup")->title(), QString());
    QCOMPARE(page.find<KvIconButton>("read")->displayText(), QStringLiteral("Read"));
    QCOMPARE(page.find<KvIconButton>("write")->displayText(), QStringLiteral("Set Test Mode"));
    QCOMPARE(page.value(), QStringLiteral("0"));
}

void TestUsbEyeTestView::radioButtonsAre48High()
{
    TestUnit unit(fast);
    Page page(unit);
    const auto radios = page.host()->findChildren<QRadioButton *>();
    QCOMPARE(radios.size(), 13);
    for (const QRadioButton *radio : radios) {
        QVERIFY2(radio->height() == 48, qPrintable(radio->objectName()));
    }
}

void TestUsbEyeTestView::styles()
{
    TestUnit unit(fast);
    Page page(unit);
    for (const char *name : {"portGroup", "speedGroup", "phyGroup", "patternGroup"}) {
        const QString style = page.find<QGroupBox>(name)->styleSheet();
        QVERIFY2(
            style.contains(QLatin1String("QRadioButton{color:rgb(255, 0, 0);font-size:24px;}")),
            qPrintable(style));
    }
    QVERIFY(page.find<QGroupBox>("roleGroup")
                ->styleSheet()
                .contains(QLatin1String("QRadioButton{color:rgb(255, 0, 0);font-size:22px;}")));
    QVERIFY(page.find<QCheckBox>("usePhy")->styleSheet().contains(
        QLatin1String("QCheckBox{color:rgb(255, 0, 0);font-size:22px;}")));
    for (const char *name :
         {"portGroup", "speedGroup", "phyGroup", "patternGroup", "roleGroup", "usePhy"}) {
        const QString style = page.find<QWidget>(name)->styleSheet();
        QVERIFY(style.contains(QLatin1String("::indicator{width:48px;height:48px;}")));
        QVERIFY(style.contains(
            QLatin1String("::indicator:checked{image:url(:/images/btn_radio_check48x48.png);}")));
        QVERIFY(style.contains(QLatin1String(
            "::indicator:unchecked{image:url(:/images/btn_radio_uncheck48x48.png);}")));
    }
}

void TestUsbEyeTestView::checkedMarksAreToBeSeen()
{
    TestUnit unit(fast);
    Page page(unit);
    const auto mark = [&page](const char *name) {
        const auto *button = page.find<QWidget>(name);
        const QRect area(button->mapTo(page.host(), QPoint(0, 0)), QSize(48, 48));
        return page.host()->grab(area).toImage();
    };
    // Each looks like its neighbour once both are in the same state, and otherwise does not.
    QVERIFY(mark("port0") != mark("port1"));
    QVERIFY(mark("hostMode") != mark("deviceMode"));
    QVERIFY(mark("none") != mark("testJ"));
    QCOMPARE(mark("testJ"), mark("testK"));
    const QImage clear = mark("usePhy");
    page.tap("usePhy");
    QVERIFY(mark("usePhy") != clear);
    page.tap("port1");
    QVERIFY(mark("port0") != mark("port1"));
}

void TestUsbEyeTestView::nothingOverlapsOrIsClipped_data()
{
    QTest::addColumn<QByteArrayList>("taps");
    QTest::newRow("test mode") << QByteArrayList();
    QTest::newRow("full speed") << QByteArrayList({"fullSpeed"});
    QTest::newRow("device role") << QByteArrayList({"deviceMode"});
    QTest::newRow("tuning") << QByteArrayList({"usePhy"});
    QTest::newRow("tuning, disconnect") << QByteArrayList({"usePhy", "disconnectLevel"});
}

void TestUsbEyeTestView::nothingOverlapsOrIsClipped()
{
    QFETCH(QByteArrayList, taps);
    TestUnit unit(fast);
    unit.unit().memory().write(0x9C004A9C, 0xDDDDDDDD); // the widest that the label must hold
    Page page(unit);
    for (const QByteArray &name : taps) {
        page.tap(name.constData());
    }
    const auto widgets = page.host()->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!widget->isVisible()) {
            continue;
        }
        const QByteArray name = widget->objectName().toLatin1();
        QVERIFY2(widget->parentWidget()->rect().contains(widget->geometry())
                     || widget->width() == 220, // the two in the PHY group, which is as wide
                 name);
        const int needed = qobject_cast<const QAbstractButton *>(widget) != nullptr
                || qobject_cast<const QLabel *>(widget) != nullptr
            ? widget->sizeHint().width()
            : 0;
        QVERIFY2(needed <= widget->width(),
                 qPrintable(QStringLiteral("%1 needs %2, has %3")
                                .arg(widget->objectName())
                                .arg(needed)
                                .arg(widget->width())));
    }
    RUN_CHECK(page.checkNothingOverlaps());
}

void TestUsbEyeTestView::constructionInItsOrder()
{
    TestUnit unit(fast);
    const TraceCapture capture;
    Page page(unit);
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

void TestUsbEyeTestView::constructionSleepsHalfASecondBehindTheLogoTest()
{
    TestUnit unit;
    QElapsedTimer timer;
    sleepTimer = &timer;
    const QtMessageHandler former = qInstallMessageHandler(watchSleep);
    Page page(unit);
    qInstallMessageHandler(former);
    sleepTimer = nullptr;
    QVERIFY(timer.isValid());
    QVERIFY2(timer.elapsed() >= 500, qPrintable(QString::number(timer.elapsed())));
}

void TestUsbEyeTestView::constructionReadsTheSwingOfPort0()
{
    TestUnit unit(fast);
    unit.unit().memory().write(swingRegister, 0x7F7F4367);
    Page page(unit);
    // 0x67 is -7; 0x43, port 1's, would be 3.
    QCOMPARE(page.value(), QStringLiteral("-7"));
}

void TestUsbEyeTestView::destructorTakesTheFormOffTheHostAndLeavesTheHardware()
{
    TestUnit unit(fast);
    Page page(unit);
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

void TestUsbEyeTestView::usePhySwitchesTheModeAndReads()
{
    TestUnit unit(fast);
    Page page(unit);
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

void TestUsbEyeTestView::usePhyClearedSwitchesBack()
{
    TestUnit unit(fast);
    Page page(unit);
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

void TestUsbEyeTestView::swingStepping_fromPlusZeroToMinusZeroAndBack()
{
    TestUnit unit(fast);
    Page page(unit);
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

void TestUsbEyeTestView::swingSteppingEndsAtPlusAndMinus31()
{
    TestUnit unit(fast);
    unit.unit().memory().write(swingRegister, 0x7F7F7E5E); // port 1 -30, port 0 +30
    Page page(unit);
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

void TestUsbEyeTestView::swingWalkShowsEveryValue()
{
    TestUnit unit(fast);
    unit.unit().memory().write(swingRegister, 0x5F);
    Page page(unit);
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

void TestUsbEyeTestView::unknownSwingLeavesTheLabel()
{
    TestUnit unit(fast);
    unit.unit().memory().write(swingRegister, 0x43);
    Page page(unit);
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

void TestUsbEyeTestView::swingNeverSetIsSteppedAsZero()
{
    TestUnit unit(fast);
    unit.unit().memory().write(swingRegister, 0);
    Page page(unit);
    page.tap("usePhy");
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("0"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("1"));
    page.tap("read");
    page.tap("decrease");
    QCOMPARE(page.value(), QStringLiteral("-0"));
}

void TestUsbEyeTestView::disconnectSteppingStopsAtItsEndsAndShows1f()
{
    TestUnit unit(fast);
    unit.unit().memory().write(0x9C004A9C, 0);
    Page page(unit);
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

void TestUsbEyeTestView::disconnectIsShownWithoutSign()
{
    TestUnit unit(fast);
    unit.unit().memory().write(0x9C004A9C, 0xFFFFFFFE);
    Page page(unit);
    page.tap("usePhy");
    page.tap("disconnectLevel");
    QCOMPARE(page.value(), QStringLiteral("fffffffe"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("ffffffff"));
    page.tap("increase");
    QCOMPARE(page.value(), QStringLiteral("ffffffff"));
}

void TestUsbEyeTestView::readButtonReadsTheChosenPort()
{
    TestUnit unit(fast);
    unit.unit().memory().write(swingRegister, 0x7F7F6142);
    unit.unit().memory().write(0x9C004A9C, 0xA0);
    unit.unit().memory().write(0x9C004B1C, 0xB1);
    Page page(unit);
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

void TestUsbEyeTestView::choosingAParameterReads()
{
    TestUnit unit(fast);
    Page page(unit);
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

void TestUsbEyeTestView::writingTheSwingOfPort1KeepsPort0sByteAndSetsTheUpperBytes()
{
    TestUnit unit(fast);
    Page page(unit);
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

void TestUsbEyeTestView::writingTheSwingOfPort0KeepsPort1sByteAndSetsTheUpperBytes()
{
    TestUnit unit(fast);
    unit.unit().memory().write(swingRegister, 0x00004251);
    Page page(unit);
    page.tap("usePhy");
    page.tap("decrease");
    page.tap("write");
    QCOMPARE(writes(unit),
             QStringList(QStringLiteral("memory write 9C000190 phySwing 00004251 -> 7F7F4250")));
}

void TestUsbEyeTestView::swingsUpperBytesKeepTheirTopBits()
{
    TestUnit unit(fast);
    unit.unit().memory().write(swingRegister, 0x80804040);
    Page page(unit);
    page.tap("usePhy");
    page.tap("write");
    // Bits 16 to 22 and 24 to 30 are set; bits 23 and 31 are nobody's to clear.
    QCOMPARE(unit.unit().memory().read(swingRegister), 0xFFFF4040u);
}

void TestUsbEyeTestView::writingTheDisconnectValueOpensTheDebugAccessFirst_data()
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

void TestUsbEyeTestView::writingTheDisconnectValueOpensTheDebugAccessFirst()
{
    QFETCH(QByteArray, port);
    QFETCH(QStringList, expected);
    TestUnit unit(fast);
    unit.unit().memory().write(0x9C004A9C, 0x12345674);
    unit.unit().memory().write(0x9C004B1C, 0x12345674);
    Page page(unit);
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
    QCOMPARE(capture.texts().last(),
             QStringLiteral("open iic debug usbPort: %1").arg(port == "port0" ? 0 : 1));
}

void TestUsbEyeTestView::valueReadOfOnePortIsWrittenToTheOther()
{
    TestUnit unit(fast);
    unit.unit().memory().write(swingRegister, 0x7F7F4049);
    Page page(unit);
    page.tap("usePhy");
    page.tap("port1");
    page.tap("write");
    QCOMPARE(unit.unit().memory().read(swingRegister), 0x7F7F4949u);
}

void TestUsbEyeTestView::setTestMode_data()
{
    QTest::addColumn<QByteArray>("port");
    QTest::addColumn<QByteArray>("speed");
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<quint32>("code");
    for (const char *port : {"port0", "port1"}) {
        const auto row = [port](const char *speed, const char *pattern, quint32 code) {
            QTest::addRow("%s, %s, %s", port, speed, pattern)
                << QByteArray(port) << QByteArray(speed) << QByteArray(pattern) << code;
        };
        row("highSpeed", "eyeDiagram", 1);
        row("highSpeed", "testJ", 9);
        row("highSpeed", "testK", 10);
        row("highSpeed", "se0", 7);
        row("highSpeed", "none", 0);
        row("fullSpeed", "eyeDiagram", 4);
        row("fullSpeed", "testJ", 11);
        row("fullSpeed", "testK", 12);
        row("fullSpeed", "se0", 7);
        row("fullSpeed", "none", 0);
    }
}

void TestUsbEyeTestView::setTestMode()
{
    QFETCH(QByteArray, port);
    QFETCH(QByteArray, speed);
    QFETCH(QByteArray, pattern);
    QFETCH(quint32, code);
    TestUnit unit(fast);
    Page page(unit);
    page.tap(port.constData());
    if (speed != "highSpeed") {
        page.tap(speed.constData());
    }
    auto *button = page.find<QRadioButton>(pattern.constData());
    if (button->isVisible()) {
        page.tap(pattern.constData());
    } else {
        button->setChecked(true); // no finger reaches it at full speed
    }
    fill(unit);
    page.tap("write");
    const bool isPort0 = port == "port0";
    QCOMPARE(writes(unit),
             QStringList(QStringLiteral("memory write %1 A5A5A5A5 -> %2")
                             .arg(isPort0 ? QStringLiteral("9C004A90 testMode0")
                                          : QStringLiteral("9C004B10 testMode1"),
                                  hardware::PhysicalMemory::hex(code))));
}

void TestUsbEyeTestView::eyeDiagramCodeDiffersBySpeedAndSe0DoesNot()
{
    TestUnit unit(fast);
    Page page(unit);
    page.tap("eyeDiagram");
    page.tap("write");
    QCOMPARE(unit.unit().usbPhy().testMode(0), QStringLiteral("1 (eye diagram, high speed)"));
    page.tap("se0");
    page.tap("write");
    QCOMPARE(unit.unit().usbPhy().testMode(0), QStringLiteral("7 (SE0)"));
    page.tap("fullSpeed");
    page.tap("eyeDiagram");
    page.tap("write");
    QCOMPARE(unit.unit().usbPhy().testMode(0), QStringLiteral("4 (eye diagram, full speed)"));
    page.find<QRadioButton>("se0")->setChecked(true);
    page.tap("write");
    QCOMPARE(unit.unit().usbPhy().testMode(0), QStringLiteral("7 (SE0)"));
}

void TestUsbEyeTestView::noneIsLogged()
{
    TestUnit unit(fast);
    Page page(unit);
    const TraceCapture capture;
    page.tap("write");
    QCOMPARE(capture.texts().mid(5), QStringList(QStringLiteral("nothing to do.")));
    QCOMPARE(capture.texts().at(2), QStringLiteral("testPattern: 4"));
}

void TestUsbEyeTestView::patternsAreSentAtOnce_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("trace");
    QTest::newRow("eyeDiagram") << 4 << QStringLiteral("TEST_EYE");
    QTest::newRow("testJ") << 1 << QStringLiteral("TEST_J");
    QTest::newRow("testK") << 2 << QStringLiteral("TEST_K");
    QTest::newRow("se0") << 3 << QStringLiteral("TEST_SE0");
}

void TestUsbEyeTestView::patternsAreSentAtOnce()
{
    QFETCH(int, mode);
    QFETCH(QString, trace);
    TestUnit unit(fast);
    Page page(unit);
    const int lines = unit.journal().size();
    const TraceCapture capture;
    page.tap(QTest::currentDataTag());
    QCOMPARE(since(unit, lines), QStringList(QStringLiteral("usb test mode %1").arg(mode)));
    QCOMPARE(capture.texts(), QStringList(trace));
    // A click on a checked button counts as well.
    page.tap(QTest::currentDataTag());
    QCOMPARE(since(unit, lines).size(), 2);
}

void TestUsbEyeTestView::noneAndThePortsSendNothing()
{
    TestUnit unit(fast);
    Page page(unit);
    const int lines = unit.journal().size();
    const TraceCapture capture;
    page.tap("none");
    page.tap("port1");
    page.tap("port0");
    QCOMPARE(since(unit, lines), QStringList());
    QCOMPARE(capture.texts(), QStringList());
}

void TestUsbEyeTestView::fullSpeedChecksNoneAndHidesJKAndSe0()
{
    TestUnit unit(fast);
    Page page(unit);
    page.tap("testK");
    page.tap("write");
    page.tap("fullSpeed");
    QVERIFY(page.isChecked("none"));
    QVERIFY(!page.isVisible("testJ"));
    QVERIFY(!page.isVisible("testK"));
    QVERIFY(!page.isVisible("se0"));
    QVERIFY(page.isVisible("eyeDiagram"));
    fill(unit);
    page.tap("write");
    QCOMPARE(writes(unit).last(),
             QStringLiteral("memory write 9C004A90 testMode0 A5A5A5A5 -> 00000000"));
}

void TestUsbEyeTestView::highSpeedShowsThemAgain()
{
    TestUnit unit(fast);
    Page page(unit);
    page.tap("fullSpeed");
    page.tap("highSpeed");
    QVERIFY(page.isVisible("testJ"));
    QVERIFY(page.isVisible("testK"));
    QVERIFY(page.isVisible("se0"));
    QVERIFY(page.isChecked("none"));
}

void TestUsbEyeTestView::speedCommands_data()
{
    QTest::addColumn<QByteArray>("port");
    QTest::addColumn<int>("device");
    QTest::newRow("port 0") << QByteArray("port0") << 1;
    QTest::newRow("port 1") << QByteArray("port1") << 2;
}

void TestUsbEyeTestView::speedCommands()
{
    QFETCH(QByteArray, port);
    QFETCH(int, device);
    TestUnit unit(fast);
    Page page(unit);
    page.tap(port.constData());
    const int lines = unit.journal().size();
    const TraceCapture capture;
    const QString command =
        QStringLiteral("shell echo %1 > /sys/devices/platform/ehci-platform.%2/usb_speed_switch");
    page.tap("fullSpeed");
    QCOMPARE(since(unit, lines), QStringList(command.arg(0).arg(device)));
    QCOMPARE(unit.unit().usbPhy().speed(device - 1), QStringLiteral("full speed"));
    QCOMPARE(unit.unit().usbPhy().speed(2 - device), QStringLiteral("high speed"));
    page.tap("highSpeed");
    QCOMPARE(since(unit, lines).last(), command.arg(1).arg(device));
    QCOMPARE(unit.unit().usbPhy().speed(device - 1), QStringLiteral("high speed"));
    QCOMPARE(capture.texts().filter(QStringLiteral("change")),
             QStringList({QStringLiteral("change to full speed port: %1").arg(device - 1),
                          QStringLiteral("change to high speed port: %1").arg(device - 1)}));
}

void TestUsbEyeTestView::speedClickedFromElsewhereIsIgnored()
{
    TestUnit unit(fast);
    Page page(unit);
    const int lines = unit.journal().size();
    const TraceCapture capture;
    page.view()->speedClicked();
    QCOMPARE(since(unit, lines), QStringList());
    QCOMPARE(capture.texts(), QStringList());
}

void TestUsbEyeTestView::otherPortsRunNothing()
{
    TestUnit unit(fast);
    Page page(unit);
    const int lines = unit.journal().size();
    const TraceCapture capture;
    page.view()->fullToHigh(2);
    page.view()->highToFull(-1);
    QCOMPARE(since(unit, lines), QStringList());
    QCOMPARE(capture.texts(),
             QStringList({QStringLiteral("change to high speed port: 2"),
                          QStringLiteral("change to full speed port: -1")}));
}

void TestUsbEyeTestView::deviceModeHidesPort1AndUsePhy()
{
    TestUnit unit(fast);
    Page page(unit);
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
    TestUnit unit(fast);
    Page page(unit);
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
    TestUnit unit(fast);
    Page page(unit);
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
    TestUnit unit(fast);
    unit.unit().memory().write(0x9C004A9C, 0x1234);
    Page page(unit);
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
    TestUnit unit(fast);
    unit.unit().memoryDevice().setFault(hardware::MemoryDevice::MapRefused);
    unit.unit().memory().write(0x9C004A9C, 0x1234);
    Page page(unit);
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
    TestUnit unit(fast);
    unit.unit().memory().write(swingRegister, 0x7F7F4545);
    unit.unit().memoryDevice().setFault(hardware::MemoryDevice::Missing);
    Page page(unit);
    QCOMPARE(page.value(), QStringLiteral("0"));
    page.tap("usePhy");
    unit.unit().memoryDevice().setFault(hardware::MemoryDevice::NoFault);
    page.tap("write");
    // The value that could not be read is 0, and port 1's byte is as it was.
    QCOMPARE(unit.unit().memory().read(swingRegister), 0x7F7F4500u);
}

void TestUsbEyeTestView::traces()
{
    TestUnit unit(fast);
    Page page(unit);
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
    QVERIFY(capture.lines().first().contains(QLatin1String("[ usbeyetestview.cpp : ")));
}

FACTORY_TEST_MAIN(TestUsbEyeTestView)
#include "tst_usbeyetestview.moc"
