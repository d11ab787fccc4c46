#include "setup/setuppanel.h"

#include "adjustbuttons.h"
#include "pageonscreen.h"
#include "saturationwalk.h"
#include "support/runcheck.h"
#include "support/testmain.h"
#include "support/tracecapture.h"

#include <QRegularExpression>

class TestCSetupPanelForm : public QObject
{
    Q_OBJECT

private slots:
    void slotsAreInTheirOrder();
    void endsWithTheFormsSize();
    void openingWritesAllFourValues();

    void brightnessAt24AndBriinc();
    void hueAt0AndHuedec();
    void brightness30CanBeSteppedDownOnly();
    void saturationReadAs1ShowsAndStoresIt();
    void stepsDownAndUpAsComputed();
    void saturationDownEndsAboveZero();
    void saturationUpStopsAboutAt199();
    void saturationIsReadOnce();
    void saturationJustBelowAnIntegerIsStoredOneLower();
    void openingWithAWriteFailureLogsSaveDataErrorFourTimes();
    void idInAnotherLetterCaseIsIgnored_data();
    void idInAnotherLetterCaseIsIgnored();
    void anotherIndexIsKeptAsBrightness();

    void clickedReturnSchedulesTheDeletion();
    void clickedExitClosesSetup();
};

namespace
{

using hardware::Panel;
using Screen = PageOnScreen<CSetupPanelForm>;

// Where a new unit's vendor data has them.
const int brightness = 256;
const int hue = 260;
const int saturation = 264;

const QString saveError = QStringLiteral("save data error");
const QString effects = QStringLiteral("/^(log|panel|vendor) /");

/// A record of the vendor data as it is journalled: 32 bits, lowest byte first.
QString written(int offset, int value)
{
    QByteArray bytes;
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.append(char((quint32(value) >> shift) & 0xFF));
    }
    return QStringLiteral("vendor write %1 ").arg(offset)
        + QString::fromLatin1(bytes.toHex(' ').toUpper());
}

/// What the service was last given, read back from the journal.
double lastGiven(const QStringList &journal)
{
    static const QString line = QStringLiteral("panel saturation ");
    return journal.filter(line).value(0).remove(line).toDouble();
}

void call(QObject *page, const char *slot)
{
    QVERIFY(QMetaObject::invokeMethod(page, slot, Qt::DirectConnection));
}

} // namespace

void TestCSetupPanelForm::slotsAreInTheirOrder()
{
    const QMetaObject &meta = CSetupPanelForm::staticMetaObject;
    QStringList own;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        QCOMPARE(meta.method(index).methodType(), QMetaMethod::Slot);
        own.append(QString::fromLatin1(meta.method(index).methodSignature()));
    }
    QCOMPARE(own, QStringList({"clickedReturn()", "clickedExit()", "clickedAdjustItem(QString)"}));
}

void TestCSetupPanelForm::endsWithTheFormsSize()
{
    Screen screen;
    screen.open();
    QCOMPARE(screen.page->geometry(), QRect(0, 66, 800, 420));
}

void TestCSetupPanelForm::openingWritesAllFourValues()
{
    Screen screen;
    Panel &panel = screen.unit.unit().panel();
    panel.setValue(Panel::Brightness, 3);
    panel.setValue(Panel::Contrast, 24);
    panel.setValue(Panel::Hue, 359);
    panel.setSaturation(1.57);
    screen.open();
    // The panel is told nothing: the values are its own.
    QCOMPARE(screen.news(effects),
             QStringList({written(brightness, 3), written(268, 24), written(hue, 359),
                          written(saturation, 157)}));
    QCOMPARE(screen.text("brightnessText"), QStringLiteral("3"));
    QCOMPARE(screen.text("ConstastText"), QStringLiteral("24"));
    QCOMPARE(screen.text("HueText"), QStringLiteral("359"));
    QCOMPARE(screen.text("SaturationText"), QStringLiteral("1.57"));
}

void TestCSetupPanelForm::brightnessAt24AndBriinc()
{
    Screen screen;
    screen.unit.unit().panel().setValue(Panel::Brightness, 24);
    screen.open();
    screen.news();
    screen.tap("increaseBrightness");
    QCOMPARE(screen.news(effects),
             QStringList({loggedItem("CSetupPanelForm", "briinc"),
                          QStringLiteral("panel brightness 24"), written(brightness, 24)}));
    QCOMPARE(screen.text("brightnessText"), QStringLiteral("24"));
}

void TestCSetupPanelForm::hueAt0AndHuedec()
{
    Screen screen;
    screen.unit.unit().panel().setValue(Panel::Hue, 0);
    screen.open();
    screen.news();
    screen.tap("decreaseHue");
    QCOMPARE(screen.news(effects),
             QStringList({loggedItem("CSetupPanelForm", "huedec"), QStringLiteral("panel hue 0"),
                          written(hue, 0)}));
    QCOMPARE(screen.text("HueText"), QStringLiteral("0"));
}

void TestCSetupPanelForm::brightness30CanBeSteppedDownOnly()
{
    Screen screen;
    screen.unit.unit().panel().setValue(Panel::Brightness, 30);
    screen.open();
    screen.tap("increaseBrightness");
    QCOMPARE(screen.text("brightnessText"), QStringLiteral("30"));
    screen.tap("decreaseBrightness");
    QCOMPARE(screen.text("brightnessText"), QStringLiteral("29"));
    QCOMPARE(screen.unit.unit().panel().value(Panel::Brightness), 29);
}

void TestCSetupPanelForm::saturationReadAs1ShowsAndStoresIt()
{
    Screen screen;
    screen.open();
    QCOMPARE(screen.text("SaturationText"), QStringLiteral("1.00"));
    QCOMPARE(screen.news(effects).constLast(), written(saturation, 100));
}

void TestCSetupPanelForm::stepsDownAndUpAsComputed()
{
    const QList<SaturationStep> walk = saturationWalk({-120, 120});
    QCOMPARE(walk.size(), 241); // The start, 120 steps down, 120 up.
    Screen screen;
    screen.open();
    for (int step = 0; step < walk.size(); ++step) {
        if (step > 0) {
            screen.tap(step <= 120 ? "decreaseSaturation" : "increaseSaturation");
        }
        const QStringList news = screen.news(effects);
        QCOMPARE(screen.text("SaturationText"), walk.at(step).label);
        QCOMPARE(news.last(), written(saturation, walk.at(step).stored));
        if (step > 0) {
            QVERIFY2(lastGiven(news) == walk.at(step).value, qPrintable(news.join(' ')));
            QCOMPARE(screen.unit.unit().panel().saturation(), walk.at(step).value);
        }
    }
}

void TestCSetupPanelForm::saturationDownEndsAboveZero()
{
    Screen screen;
    screen.open();
    for (int press = 0; press < 99; ++press) {
        screen.tap("decreaseSaturation");
    }
    QCOMPARE(screen.text("SaturationText"), QStringLiteral("0.01"));
    QCOMPARE(screen.news(effects).constLast(), written(saturation, 1));
    // The rounding errors leave a remainder that is more than nothing, and there it stays.
    for (int press = 0; press < 5; ++press) {
        screen.tap("decreaseSaturation");
        QCOMPARE(screen.text("SaturationText"), QStringLiteral("0.00"));
        QVERIFY(screen.unit.unit().panel().saturation() > 0);
        QVERIFY(screen.unit.unit().panel().saturation() < 1e-5);
        QCOMPARE(screen.news(effects).constLast(), written(saturation, 0));
    }
}

void TestCSetupPanelForm::saturationUpStopsAboutAt199()
{
    Screen screen;
    screen.open();
    for (int press = 0; press < 99; ++press) {
        screen.tap("increaseSaturation");
    }
    const QString shown = screen.text("SaturationText");
    QCOMPARE(shown, QStringLiteral("1.99"));
    const double reached = screen.unit.unit().panel().saturation();
    screen.news();
    screen.tap("increaseSaturation");
    QCOMPARE(screen.text("SaturationText"), shown);
    QCOMPARE(screen.unit.unit().panel().saturation(), reached);
    // It is told the value and keeps it all the same.
    QCOMPARE(screen.news(effects).size(), 3);
}

void TestCSetupPanelForm::saturationIsReadOnce()
{
    Screen screen;
    screen.open();
    screen.unit.unit().panel().setSaturation(0.2);
    screen.tap("increaseSaturation");
    QCOMPARE(screen.text("SaturationText"), QStringLiteral("1.01"));
    // The other items are read at each press.
    screen.unit.unit().panel().setValue(Panel::Hue, 20);
    screen.tap("increaseHue");
    QCOMPARE(screen.text("HueText"), QStringLiteral("21"));
}

void TestCSetupPanelForm::saturationJustBelowAnIntegerIsStoredOneLower()
{
    Screen screen;
    // The single-precision number before the one next to 0.29; 100 times it is 28.999996.
    screen.unit.unit().panel().setSaturation(double(std::nextafter(0.29f, 0.0f)));
    screen.open();
    QCOMPARE(screen.text("SaturationText"), QStringLiteral("0.29"));
    QCOMPARE(screen.news(effects).constLast(), written(saturation, 28));
}

void TestCSetupPanelForm::openingWithAWriteFailureLogsSaveDataErrorFourTimes()
{
    Screen screen;
    screen.unit.unit().vendorData().refuseWrites(true);
    const TraceCapture capture;
    screen.open();
    QCOMPARE(capture.lines().count(saveError), 4);
    QCOMPARE(screen.text("SaturationText"), QStringLiteral("1.00"));
}

void TestCSetupPanelForm::idInAnotherLetterCaseIsIgnored_data()
{
    addIds({"BRIINC", "Briinc", "hueInc", "satDec", "bri", "briinc ", ""});
}

void TestCSetupPanelForm::idInAnotherLetterCaseIsIgnored()
{
    QFETCH(QString, id);
    Screen screen;
    screen.open();
    screen.news();
    RUN_CHECK(clickAdjustItem(screen.page, id));
    QCOMPARE(screen.news(effects), QStringList(loggedItem("CSetupPanelForm", qPrintable(id))));
}

void TestCSetupPanelForm::anotherIndexIsKeptAsBrightness()
{
    Screen screen;
    screen.open();
    screen.news();
    screen.page->setValue(4, 7.9f);
    QCOMPARE(screen.news(effects), QStringList(written(brightness, 7)));
    QCOMPARE(screen.text("brightnessText"), QStringLiteral("12"));
    QCOMPARE(screen.text("SaturationText"), QStringLiteral("1.00"));
}

void TestCSetupPanelForm::clickedReturnSchedulesTheDeletion()
{
    Screen screen;
    screen.open();
    screen.news();
    call(screen.page, "clickedReturn");
    QVERIFY(!screen.page.isNull());
    QCOMPARE(screen.news(),
             QStringList(QStringLiteral("log INFO CSetupPanelForm clickedReturn\\n")));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(screen.page.isNull());
}

void TestCSetupPanelForm::clickedExitClosesSetup()
{
    Screen screen;
    screen.open();
    screen.news();
    call(screen.page, "clickedExit");
    QCOMPARE(screen.news(QStringLiteral("/^(log|framework close) /")),
             QStringList({QStringLiteral("log INFO CSetupPanelForm clickedExit\\n"),
                          QStringLiteral("framework close setup")}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(screen.page.isNull());
}

FACTORY_TEST_MAIN(TestCSetupPanelForm)
#include "tst_csetuppanelform.moc"
