#include "setup/csetupkeylight.h"

#include "adjustrow.h"
#include "pageonscreen.h"

#include "support/testmain.h"

class TestCSetupKeyLight : public QObject
{
    Q_OBJECT

private slots:
    void endsWithTheFormsSize();

    void freshlyOpenedPageHasSentTheMidColourThreeTimes();
    void newPageStartsFromTheMidColourAgain();
    void buttonStepsItsColour_data();
    void buttonStepsItsColour();
    void boundsAreReachedAndHeld_data();
    void boundsAreReachedAndHeld();
    void redAt100AndIncreaseRed();
    void redAt0AndDecreaseRed();
    void changingGreenLeavesRedAndBlue();
    void anotherIndexShowsNothingButSends();
    void unknownIdIsIgnored_data();
    void unknownIdIsIgnored();
    void theKeysShineInTheColour();
};

namespace
{

using Screen = PageOnScreen<CSetupKeyLight>;

const AdjustRow rows[] = {
    {"red", "decreaseRed", "bridec", "brightnessText", "increaseRed", "briinc", 50},
    {"green", "decreaseGreen", "condec", "ConstastText", "increaseGreen", "coninc", 50},
    {"blue", "decreaseBlue", "huedec", "HueText", "increaseBlue", "hueinc", 50},
};

const QString effects = QStringLiteral("/^(log|mcu) /");

/// The colour message as the MCU's journal shows it.
QString message(int red, int green, int blue)
{
    const char colors[] = {char(red), char(green), char(blue)};
    return QStringLiteral("mcu FF 66 06 15 84 FE %1 FF")
        .arg(QString::fromLatin1(QByteArray(colors, 3).toHex(' ').toUpper()));
}

/// The message with one of the three at another value than 50.
QString message(int index, int value)
{
    return message(index == 0 ? value : 50, index == 1 ? value : 50, index == 2 ? value : 50);
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

void TestCSetupKeyLight::newPageStartsFromTheMidColourAgain()
{
    Screen screen;
    screen.open();
    screen.tap("increaseRed");
    delete screen.page;
    screen.open();
    QCOMPARE(screen.text("brightnessText"), QStringLiteral("50"));
    QCOMPARE(screen.news(effects).constLast(), message(50, 50, 50));
}

void TestCSetupKeyLight::buttonStepsItsColour_data()
{
    addIndexes(rows);
}

void TestCSetupKeyLight::buttonStepsItsColour()
{
    QFETCH(int, index);
    const AdjustRow &row = rows[index];
    Screen screen;
    screen.open();
    screen.news();
    screen.tap(row.increase);
    QCOMPARE(screen.text(row.valueLabel), QStringLiteral("51"));
    QCOMPARE(screen.news(effects),
             QStringList({loggedItem("CSetupKeyLight", row.increaseId), message(index, 51)}));
    screen.tap(row.decrease);
    screen.tap(row.decrease);
    QCOMPARE(screen.text(row.valueLabel), QStringLiteral("49"));
    QCOMPARE(screen.news(effects),
             QStringList({loggedItem("CSetupKeyLight", row.decreaseId), message(index, 50),
                          loggedItem("CSetupKeyLight", row.decreaseId), message(index, 49)}));
}

void TestCSetupKeyLight::boundsAreReachedAndHeld_data()
{
    addIndexes(rows);
}

void TestCSetupKeyLight::boundsAreReachedAndHeld()
{
    QFETCH(int, index);
    const AdjustRow &row = rows[index];
    Screen screen;
    screen.open();
    for (int value = 51; value <= 102; ++value) {
        screen.news();
        screen.tap(row.increase);
        const int held = qMin(value, 100);
        QCOMPARE(screen.text(row.valueLabel), QString::number(held));
        QCOMPARE(screen.news(effects),
                 QStringList({loggedItem("CSetupKeyLight", row.increaseId), message(index, held)}));
    }
    for (int value = 99; value >= -2; --value) {
        screen.news();
        screen.tap(row.decrease);
        const int held = qMax(value, 0);
        QCOMPARE(screen.text(row.valueLabel), QString::number(held));
        QCOMPARE(screen.news(effects),
                 QStringList({loggedItem("CSetupKeyLight", row.decreaseId), message(index, held)}));
    }
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
    for (const AdjustRow &row : rows) {
        QCOMPARE(screen.text(row.valueLabel), QStringLiteral("50"));
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

void TestCSetupKeyLight::theKeysShineInTheColour()
{
    Screen screen;
    screen.open();
    screen.tap("increaseRed");
    screen.tap("decreaseBlue");
    const hardware::KeyColor color = screen.unit.unit().keyLight().color();
    QCOMPARE(color.red, 51);
    QCOMPARE(color.green, 50);
    QCOMPARE(color.blue, 49);
}

FACTORY_TEST_MAIN(TestCSetupKeyLight)
#include "tst_csetupkeylight.moc"
