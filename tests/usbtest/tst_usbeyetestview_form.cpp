#include "usbtest/usbeyetestview.h"

#include "eyepage.h"

#include "kvwidget/kviconbutton.h"
#include "support/runcheck.h"
#include "support/testmain.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QtTest>

class TestUsbEyeTestViewForm : public QObject
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
};

void TestUsbEyeTestViewForm::initTestCase()
{
    applyUnitsAppearance();
}

void TestUsbEyeTestViewForm::geometry_data()
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

void TestUsbEyeTestViewForm::geometry()
{
    TestUnit unit(fast);
    Page page(unit);
    QTEST(page.find<QWidget>(QTest::currentDataTag())->geometry(), "geometry");
}

void TestUsbEyeTestViewForm::firstLook()
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

void TestUsbEyeTestViewForm::texts()
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

void TestUsbEyeTestViewForm::radioButtonsAre48High()
{
    TestUnit unit(fast);
    Page page(unit);
    const auto radios = page.host()->findChildren<QRadioButton *>();
    QCOMPARE(radios.size(), 13);
    for (const QRadioButton *radio : radios) {
        QVERIFY2(radio->height() == 48, qPrintable(radio->objectName()));
    }
}

void TestUsbEyeTestViewForm::styles()
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

void TestUsbEyeTestViewForm::checkedMarksAreToBeSeen()
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

void TestUsbEyeTestViewForm::nothingOverlapsOrIsClipped_data()
{
    QTest::addColumn<QByteArrayList>("taps");
    QTest::newRow("test mode") << QByteArrayList();
    QTest::newRow("full speed") << QByteArrayList({"fullSpeed"});
    QTest::newRow("device role") << QByteArrayList({"deviceMode"});
    QTest::newRow("tuning") << QByteArrayList({"usePhy"});
    QTest::newRow("tuning, disconnect") << QByteArrayList({"usePhy", "disconnectLevel"});
}

void TestUsbEyeTestViewForm::nothingOverlapsOrIsClipped()
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

FACTORY_TEST_MAIN(TestUsbEyeTestViewForm)
#include "tst_usbeyetestview_form.moc"
