#include "setup/csetupkeylight.h"

#include "pageonscreen.h"

#include "kvwidget/kvhorstrbutton.h"

class TestCSetupKeyLight : public QObject
{
    Q_OBJECT

private slots:
    void endsWithTheFormsSize();
    void isBlack();
    void row_data();
    void row();
    void rowsAreAligned();
    void buttonsShowAndPress();

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

struct Row
{
    const char *color;
    const char *nameLabel;
    const char *name;
    const char *decrease;
    const char *decreaseId;
    const char *valueLabel;
    const char *increase;
    const char *increaseId;
};

const Row rows[] = {
    {"red", "label_brightness", "Red [0,100]", "decreaseRed", "bridec", "brightnessText",
     "increaseRed", "briinc"},
    {"green", "label_Constast", "Green [0,100]", "decreaseGreen", "condec", "ConstastText",
     "increaseGreen", "coninc"},
    {"blue", "label_Hue", "Blue [0,100]", "decreaseBlue", "huedec", "HueText", "increaseBlue",
     "hueinc"},
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

QString logged(const char *id)
{
    return QStringLiteral("log INFO CSetupKeyLight clickedAdjustItem ") + QLatin1String(id);
}

void addRows()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < 3; ++index) {
        QTest::newRow(rows[index].color) << index;
    }
}

} // namespace

void TestCSetupKeyLight::endsWithTheFormsSize()
{
    Screen screen;
    screen.open();
    // The form resizes what was given a rectangle before.
    QCOMPARE(screen.page->geometry(), QRect(0, 66, 800, 480));
    QCOMPARE(screen.page->title(), QStringLiteral("Key Led Brightness"));
    QCOMPARE(screen.page->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(screen.page->styleSheet(), QStringLiteral("background-color:rgb(0, 0, 0);"));
    QVERIFY(screen.page->testAttribute(Qt::WA_StyledBackground));
    QCOMPARE(screen.widget<QWidget>("layoutWidget")->geometry(), QRect(0, 40, 771, 281));
}

void TestCSetupKeyLight::isBlack()
{
    Screen screen;
    screen.open();
    const QImage image = picture(screen.unit, screen.page);
    for (const QPoint &point : {QPoint(0, 0), QPoint(799, 0), QPoint(5, 200), QPoint(400, 405)}) {
        QCOMPARE(image.pixelColor(point), QColor(Qt::black));
    }
}

void TestCSetupKeyLight::row_data()
{
    addRows();
}

void TestCSetupKeyLight::row()
{
    QFETCH(int, index);
    const Row &row = rows[index];
    Screen screen;
    screen.open();

    const auto *name = screen.widget<QLabel>(row.nameLabel);
    QCOMPARE(name->text(), QLatin1String(row.name));
    QCOMPARE(name->minimumSize(), QSize(300, 35));
    QCOMPARE(name->maximumSize(), QSize(400, 35));
    QCOMPARE(name->font().pointSize(), 28);
    QCOMPARE(name->styleSheet(),
             QStringLiteral("color: rgb(240, 240, 240);\nbackground-color: rgba(0, 0, 0, 0);"));
    QVERIFY(isTextInside(name));

    auto *value = screen.widget<QLabel>(row.valueLabel);
    QCOMPARE(value->text(), QStringLiteral("50"));
    QCOMPARE(value->minimumSize(), QSize(60, 60));
    QCOMPARE(value->maximumSize(), QSize(124, 60));
    QCOMPARE(value->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(value->styleSheet(),
             QStringLiteral("color: rgb(28, 160, 248);font: 30pt \"Arial\";\nbackground-color: "
                            "rgba(0, 0, 0, 0);"));
    value->setText(QStringLiteral("100"));
    QVERIFY(isTextInside(value));

    const auto checkButton = [&](const char *widget, const char *id) {
        const auto *button = screen.widget<KvHorStrButton>(widget);
        QCOMPARE(button->buttonId(), QLatin1String(id));
        QCOMPARE(button->size(), QSize(82, 60));
        QCOMPARE(button->minimumSize(), button->maximumSize());
        QCOMPARE(button->displayString(), QString());
        QVERIFY(!button->normalPixmap().isNull());
        QVERIFY(!button->pressPixmap().isNull());
        QVERIFY(!button->disablePixmap().isNull());
    };
    checkButton(row.decrease, row.decreaseId);
    checkButton(row.increase, row.increaseId);
}

void TestCSetupKeyLight::rowsAreAligned()
{
    Screen screen;
    screen.open();
    // Values of different lengths.
    screen.page->setValue(0, 100);
    screen.page->setValue(1, 0);
    QCoreApplication::sendPostedEvents();
    const auto middle = [&](const char *name) {
        return screen.widget<QWidget>(name)->geometry().center();
    };
    for (const Row &row : rows) {
        QCOMPARE(middle(row.decrease).x(), middle(rows[0].decrease).x());
        QCOMPARE(middle(row.valueLabel).x(), middle(rows[0].valueLabel).x());
        QCOMPARE(middle(row.increase).x(), middle(rows[0].increase).x());
        QCOMPARE(screen.widget<QWidget>(row.nameLabel)->x(),
                 screen.widget<QWidget>(rows[0].nameLabel)->x());
        QCOMPARE(middle(row.decrease).y(), middle(row.increase).y());
    }
}

void TestCSetupKeyLight::buttonsShowAndPress()
{
    Screen screen;
    screen.open();
    for (const char *name : {"decreaseRed", "increaseRed"}) {
        const auto *button = screen.widget<QWidget>(name);
        const QPoint middle = button->mapTo(&screen.unit.screen(), button->rect().center());
        const QImage released = picture(screen.unit, button);
        screen.unit.press(middle);
        const QImage pressed = picture(screen.unit, button);
        screen.unit.release(middle);
        QVERIFY(pressed != released);
        QCOMPARE(picture(screen.unit, button), released);
    }
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
    QCOMPARE(screen.news(effects).last(), message(50, 50, 50));
}

void TestCSetupKeyLight::buttonStepsItsColour_data()
{
    addRows();
}

void TestCSetupKeyLight::buttonStepsItsColour()
{
    QFETCH(int, index);
    const Row &row = rows[index];
    Screen screen;
    screen.open();
    screen.news();
    screen.tap(row.increase);
    QCOMPARE(screen.text(row.valueLabel), QStringLiteral("51"));
    QCOMPARE(screen.news(effects), QStringList({logged(row.increaseId), message(index, 51)}));
    screen.tap(row.decrease);
    screen.tap(row.decrease);
    QCOMPARE(screen.text(row.valueLabel), QStringLiteral("49"));
    QCOMPARE(screen.news(effects),
             QStringList({logged(row.decreaseId), message(index, 50), logged(row.decreaseId),
                          message(index, 49)}));
}

void TestCSetupKeyLight::boundsAreReachedAndHeld_data()
{
    addRows();
}

void TestCSetupKeyLight::boundsAreReachedAndHeld()
{
    QFETCH(int, index);
    const Row &row = rows[index];
    Screen screen;
    screen.open();
    for (int value = 51; value <= 102; ++value) {
        screen.news();
        screen.tap(row.increase);
        const int held = qMin(value, 100);
        QCOMPARE(screen.text(row.valueLabel), QString::number(held));
        QCOMPARE(screen.news(effects), QStringList({logged(row.increaseId), message(index, held)}));
    }
    for (int value = 99; value >= -2; --value) {
        screen.news();
        screen.tap(row.decrease);
        const int held = qMax(value, 0);
        QCOMPARE(screen.text(row.valueLabel), QString::number(held));
        QCOMPARE(screen.news(effects), QStringList({logged(row.decreaseId), message(index, held)}));
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
    for (const Row &row : rows) {
        QCOMPARE(screen.text(row.valueLabel), QStringLiteral("50"));
    }
}

void TestCSetupKeyLight::unknownIdIsIgnored_data()
{
    QTest::addColumn<QString>("id");
    for (const char *id : {"BRIINC", "red", "satinc"}) {
        QTest::newRow(id) << QString::fromLatin1(id);
    }
}

void TestCSetupKeyLight::unknownIdIsIgnored()
{
    QFETCH(QString, id);
    Screen screen;
    screen.open();
    screen.news();
    QVERIFY(QMetaObject::invokeMethod(screen.page, "clickedAdjustItem", Qt::DirectConnection,
                                      Q_ARG(QString, id)));
    QCOMPARE(screen.news(effects), QStringList(logged(qPrintable(id))));
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

QTEST_MAIN(TestCSetupKeyLight)
#include "tst_csetupkeylight.moc"
