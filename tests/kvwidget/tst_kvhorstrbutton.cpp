#include "kvwidget/kvhorstrbutton.h"

#include "buttonchecks.h"

#include "support/testmain.h"

#include <QtTest>

namespace
{

// As on the panel page: the button is larger than its image of 56 x 56.
constexpr QRect place(100, 100, 103, 60);
constexpr QRect imagePlace(123, 102, 56, 56);
constexpr QPoint onButton(101, 101);
const QPoint onImage = imagePlace.topLeft();

constexpr QColor normalColor(0, 0, 255);
constexpr QColor pressColor(255, 0, 0);
constexpr QColor disableColor(255, 255, 0);

class Button : public KvHorStrButton
{
public:
    explicit Button(QWidget *parent = nullptr)
        : KvHorStrButton(parent)
    {
        setGeometry(place);
        setMinimumHeight(place.height());
        setButtonId("bridec");
        setNormalPixmap(plain(imagePlace.size(), normalColor));
        setPressPixmap(plain(imagePlace.size(), pressColor));
        connect(this, &KvHorStrButton::clicked, this, [this](const QString &id) { heard << id; });
    }

    QStringList heard;
};

} // namespace

class TestKvHorStrButton : public QObject
{
    Q_OBJECT

private slots:
    void clickedWhenLiftedInside();
    void higherThanItsImageIsTouchedInItsMiddle();
    void slotDeletesButton();
    void normalImageStaysWithoutPressedOne();
    void disabled_data();
    void disabled();
    void displayString();
    void displayStringTakesFontAndColorOfTheWidget();
    void takesImageSize();
    void propertiesForForms_data();
    void propertiesForForms();
    void styleSheetPaints();
};

void TestKvHorStrButton::clickedWhenLiftedInside()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    // The whole button takes touches, not only its image.
    screen.fingerDown(onButton);
    QCOMPARE(screen.colorAt(onImage), pressColor);
    QCOMPARE(button.heard, QStringList());
    screen.fingerUp(place.bottomRight());
    QCOMPARE(screen.colorAt(onImage), normalColor);
    QCOMPARE(button.heard, QStringList{"bridec"});
}

void TestKvHorStrButton::higherThanItsImageIsTouchedInItsMiddle()
{
    TouchScreen screen;
    Button button(&screen);
    QCOMPARE(button.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    button.resize(103, 119);
    button.setMinimumHeight(58);
    QVERIFY(screen.turnOn());
    // (119 - 58) / 2 = 30
    screen.tap(QPoint(150, 129));
    screen.tap(QPoint(150, 188));
    QCOMPARE(button.heard, QStringList());
    QCOMPARE(screen.touches(), 0);
    screen.tap(QPoint(150, 130));
    screen.tap(QPoint(150, 187));
    QCOMPARE(button.heard, (QStringList{"bridec", "bridec"}));
    // Nor does lifting the finger outside the middle count.
    screen.fingerDown(QPoint(150, 160));
    screen.fingerUp(QPoint(150, 128));
    QCOMPARE(button.heard.size(), 2);
}

void TestKvHorStrButton::slotDeletesButton()
{
    RUN_CHECK(checkSlotMayDelete<Button>(&KvHorStrButton::clicked, onButton));
}

void TestKvHorStrButton::normalImageStaysWithoutPressedOne()
{
    TouchScreen screen;
    Button button(&screen);
    button.setPressPixmap(QPixmap());
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);
    QCOMPARE(screen.colorAt(onImage), normalColor);
    screen.fingerUp(onButton);
}

void TestKvHorStrButton::disabled_data()
{
    QTest::addColumn<bool>("hasImage");
    QTest::newRow("with its image") << true;
    QTest::newRow("without") << false;
}

void TestKvHorStrButton::disabled()
{
    QFETCH(bool, hasImage);
    TouchScreen screen;
    Button button(&screen);
    if (hasImage) {
        button.setDisablePixmap(plain(imagePlace.size(), disableColor));
    }
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(onImage), normalColor);
    button.setEnabled(false);
    const QColor seen = screen.colorAt(onImage);
    if (hasImage) {
        QCOMPARE(seen, disableColor);
    } else {
        QVERIFY(seen.red() == 0 && seen.blue() > 50 && seen.blue() < 150);
    }
    screen.fingerDown(onButton);
    QCOMPARE(screen.colorAt(onImage), seen);
    screen.fingerUp(onButton);
    QCOMPARE(button.heard, QStringList());
    QCOMPARE(screen.touches(), 0);
}

void TestKvHorStrButton::displayString()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(screen.inkIn(imagePlace, normalColor).isNull());
    button.setDisplayString("HH");
    const QRect ink = screen.inkIn(imagePlace, normalColor);
    QVERIFY(!ink.isNull());
    QVERIFY(qAbs(ink.center().x() - imagePlace.center().x()) <= 2);
    QVERIFY(qAbs(ink.center().y() - imagePlace.center().y()) <= 3);

    button.setNormalPixmap(plain(place.size(), normalColor));
    button.setDisplayString(QString("H").repeated(14));
    QVERIFY(place.adjusted(2, 2, -2, -2).contains(screen.inkIn(place, normalColor)));
}

void TestKvHorStrButton::displayStringTakesFontAndColorOfTheWidget()
{
    TouchScreen screen;
    Button button(&screen);
    button.setStyleSheet("font: 40px; color: rgb(10, 200, 30);");
    button.setDisplayString(QString(QChar(0x2588)));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(place.center()), QColor(10, 200, 30));
    // A block of 40 px reaches further than 12 px up from its middle.
    QCOMPARE(screen.colorAt(place.center() - QPoint(0, 12)), QColor(10, 200, 30));
    button.setEnabled(false);
    const int dimmed = screen.colorAt(place.center()).green();
    QVERIFY2(dimmed >= 90 && dimmed <= 150, qPrintable(QString::number(dimmed)));
}

void TestKvHorStrButton::takesImageSize()
{
    KvHorStrButton button;
    button.setGeometry(QRect(30, 40, 0, 20));
    button.setNormalPixmap(plain(QSize(56, 56), normalColor));
    QCOMPARE(button.sizeHint(), QSize(56, 56));
    QCOMPARE(button.geometry(), QRect(30, 40, 56, 56));
}

void TestKvHorStrButton::propertiesForForms_data()
{
    addPropertyColumns();
    const QVariant image = plain(QSize(9, 9), pressColor);
    QTest::newRow("buttonId") << QByteArray("buttonId") << QVariant("briinc") << false;
    QTest::newRow("displayString") << QByteArray("displayString") << QVariant("text") << true;
    QTest::newRow("normalPixmap") << QByteArray("normalPixmap") << image << true;
    QTest::newRow("pressPixmap") << QByteArray("pressPixmap") << image << true;
    QTest::newRow("disablePixmap") << QByteArray("disablePixmap") << image << true;
}

void TestKvHorStrButton::propertiesForForms()
{
    checkProperty<Button>();
}

void TestKvHorStrButton::styleSheetPaints()
{
    TouchScreen screen;
    Button button(&screen);
    button.setObjectName("decreaseRed");
    button.setStyleSheet("#decreaseRed{\nbackground-color: rgb(10, 20, 30);\n}");
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(onButton), QColor(10, 20, 30));
    QCOMPARE(screen.colorAt(onImage), normalColor);
}

FACTORY_TEST_MAIN(TestKvHorStrButton)
#include "tst_kvhorstrbutton.moc"
