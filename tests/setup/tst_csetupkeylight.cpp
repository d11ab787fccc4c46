#include "setup/csetupkeylight.h"

#include "adjustbuttons.h"
#include "pageonscreen.h"

#include "support/testmain.h"

class TestCSetupKeyLight : public QObject
{
    Q_OBJECT

private slots:
    void endsWithTheFormsSize();

    void freshlyOpenedPageHasSentTheMidColourThreeTimes();
    void redAt100AndIncreaseRed();
    void redAt0AndDecreaseRed();
    void changingGreenLeavesRedAndBlue();
    void anotherIndexShowsNothingButSends();
    void unknownIdIsIgnored_data();
    void unknownIdIsIgnored();
};

namespace
{

using Screen = PageOnScreen<CSetupKeyLight>;

const QString effects = QStringLiteral("/^(log|mcu) /");

/// The colour message as the MCU's journal shows it.
QString message(int red, int green, int blue)
{
    const char colors[] = {char(red), char(green), char(blue)};
    return QStringLiteral("mcu FF 66 06 15 84 FE %1 FF")
        .arg(QString::fromLatin1(QByteArray(colors, 3).toHex(' ').toUpper()));
}

} // namespace

void TestCSetupKeyLight::endsWithTheFormsSize()
{
    Screen screen;
    screen.open();
    QCOMPARE(screen.page->geometry(), QRect(0, 66, 800, 480));
}

void TestCSetupKeyLight::freshlyOpenedPageHasSentTheMidColourThreeTimes()
{
    Screen screen;
    screen.open();
    const QString midColor = QStringLiteral("mcu FF 66 06 15 84 FE 32 32 32 FF");
    QCOMPARE(screen.news(effects), QStringList({midColor, midColor, midColor}));
}

void TestCSetupKeyLight::redAt100AndIncreaseRed()
{
    Screen screen;
    screen.open();
    for (int press = 0; press < 50; ++press) {
        screen.tap("increaseRed");
    }
    screen.news();
    screen.tap("increaseRed");
    QCOMPARE(screen.text("brightnessText"), QStringLiteral("100"));
    QCOMPARE(screen.news(QStringLiteral("/^mcu/")),
             QStringList(QStringLiteral("mcu FF 66 06 15 84 FE 64 32 32 FF")));
}

void TestCSetupKeyLight::redAt0AndDecreaseRed()
{
    Screen screen;
    screen.open();
    for (int press = 0; press < 50; ++press) {
        screen.tap("decreaseRed");
    }
    screen.news();
    screen.tap("decreaseRed");
    QCOMPARE(screen.text("brightnessText"), QStringLiteral("0"));
    QCOMPARE(screen.news(QStringLiteral("/^mcu/")),
             QStringList(QStringLiteral("mcu FF 66 06 15 84 FE 00 32 32 FF")));
}

void TestCSetupKeyLight::changingGreenLeavesRedAndBlue()
{
    Screen screen;
    screen.open();
    screen.tap("increaseRed");
    screen.tap("decreaseBlue");
    screen.news();
    screen.tap("increaseGreen");
    QCOMPARE(screen.news(QStringLiteral("/^mcu/")), QStringList(message(51, 51, 49)));
}

void TestCSetupKeyLight::anotherIndexShowsNothingButSends()
{
    Screen screen;
    screen.open();
    screen.news();
    screen.page->setValue(3, 7);
    QCOMPARE(screen.news(effects), QStringList(message(50, 50, 50)));
    for (const char *label : {"brightnessText", "ConstastText", "HueText"}) {
        QCOMPARE(screen.text(label), QStringLiteral("50"));
    }
}

void TestCSetupKeyLight::unknownIdIsIgnored_data()
{
    addIds({"BRIINC", "red", "satinc"});
}

void TestCSetupKeyLight::unknownIdIsIgnored()
{
    QFETCH(QString, id);
    Screen screen;
    screen.open();
    screen.news();
    RUN_CHECK(clickAdjustItem(screen.page, id));
    QCOMPARE(screen.news(effects), QStringList(loggedItem("CSetupKeyLight", qPrintable(id))));
}

FACTORY_TEST_MAIN(TestCSetupKeyLight)
#include "tst_csetupkeylight.moc"
