#include "usbtest/usbeyetestview.h"

#include "eyepage.h"

#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QRadioButton>
#include <QtTest>

class TestUsbEyeTestViewModes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void setTestMode_data();
    void setTestMode();
    void eyeDiagramCodeDiffersBySpeedAndSe0DoesNot();
    void noneIsLogged();
    void noneAndThePortsSendNothing();
    void fullSpeedChecksNoneAndHidesJKAndSe0();
    void speedClickedFromElsewhereIsIgnored();
    void otherPortsRunNothing();
};

void TestUsbEyeTestViewModes::initTestCase()
{
    applyUnitsAppearance();
}

void TestUsbEyeTestViewModes::setTestMode_data()
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

void TestUsbEyeTestViewModes::setTestMode()
{
    QFETCH(QByteArray, port);
    QFETCH(QByteArray, speed);
    QFETCH(QByteArray, pattern);
    QFETCH(quint32, code);
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
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

void TestUsbEyeTestViewModes::eyeDiagramCodeDiffersBySpeedAndSe0DoesNot()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
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

void TestUsbEyeTestViewModes::noneIsLogged()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    const TraceCapture capture;
    page.tap("write");
    QCOMPARE(capture.texts().mid(5), QStringList(QStringLiteral("nothing to do.")));
    QCOMPARE(capture.texts().at(2), QStringLiteral("testPattern: 4"));
}

void TestUsbEyeTestViewModes::noneAndThePortsSendNothing()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    const int lines = unit.journal().size();
    const TraceCapture capture;
    page.tap("none");
    page.tap("port1");
    page.tap("port0");
    QCOMPARE(since(unit, lines), QStringList());
    QCOMPARE(capture.texts(), QStringList());
}

void TestUsbEyeTestViewModes::fullSpeedChecksNoneAndHidesJKAndSe0()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
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
    QCOMPARE(writes(unit).constLast(),
             QStringLiteral("memory write 9C004A90 testMode0 A5A5A5A5 -> 00000000"));
}

void TestUsbEyeTestViewModes::speedClickedFromElsewhereIsIgnored()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    const int lines = unit.journal().size();
    const TraceCapture capture;
    page.view()->speedClicked();
    QCOMPARE(since(unit, lines), QStringList());
    QCOMPARE(capture.texts(), QStringList());
}

void TestUsbEyeTestViewModes::otherPortsRunNothing()
{
    TestUnit unit(eyeSpeed);
    EyePage page(unit);
    const int lines = unit.journal().size();
    const TraceCapture capture;
    page.view()->fullToHigh(2);
    page.view()->highToFull(-1);
    QCOMPARE(since(unit, lines), QStringList());
    QCOMPARE(capture.texts(),
             QStringList({QStringLiteral("change to high speed port: 2"),
                          QStringLiteral("change to full speed port: -1")}));
}

FACTORY_TEST_MAIN(TestUsbEyeTestViewModes)
#include "tst_usbeyetestview_modes.moc"
