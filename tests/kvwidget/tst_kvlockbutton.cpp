#include "kvwidget/kvlockbutton.h"

#include "buttonchecks.h"
#include "testpagebutton.h"

#include "support/testmain.h"

#include <QtTest>

namespace
{

class Button : public KvLockButton
{
public:
    explicit Button(QWidget *parent = nullptr)
        : KvLockButton(parent)
    {
        setGeometry(place);
        setButtonID("C_TCP");
        setNormalImage(plain(place.size(), normalColor));
        setPressImage(plain(place.size(), pressColor));
        connect(this, &KvLockButton::btnReleased, this, [this](const QString &id) {
            heard << id;
            downWhenHeard = isDown();
        });
    }

    QStringList heard;
    bool downWhenHeard = false;
};

} // namespace

class TestKvLockButton : public QObject
{
    Q_OBJECT

private slots:
    void pressLatches();
    void pressWhileDownStaysDownAndTells();
    void liftOutsideChangesNothing_data();
    void liftOutsideChangesNothing();
    void interruptedPressChangesNothing_data();
    void interruptedPressChangesNothing();
    void setIsDownIsSilent();
    void isDownIsAPropertyForForms();
    void otherButtonMayBeReleasedBySlot();
    void slotDeletesButton();
    void disabledRefuses();
    void showModes_data();
    void showModes();
    void takesImageSize();
    void styleSheetPaints();
};

void TestKvLockButton::pressLatches()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(!button.isDown());
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    screen.fingerDown(onButton);
    QVERIFY(button.isDown());
    QCOMPARE(screen.colorAt(faceCorner), pressColor);
    QCOMPARE(button.heard, QStringList());
    screen.fingerUp(onButton);
    QVERIFY(button.isDown());
    QVERIFY(button.downWhenHeard);
    QCOMPARE(screen.colorAt(faceCorner), pressColor);
    QCOMPARE(button.heard, QStringList{"C_TCP"});
}

void TestKvLockButton::pressWhileDownStaysDownAndTells()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    screen.tap(onButton);
    screen.tap(onButton);
    QVERIFY(button.isDown());
    QCOMPARE(screen.colorAt(faceCorner), pressColor);
    QCOMPARE(button.heard, (QStringList{"C_TCP", "C_TCP"}));
}

void TestKvLockButton::liftOutsideChangesNothing_data()
{
    QTest::addColumn<bool>("down");
    QTest::newRow("was up") << false;
    QTest::newRow("was down") << true;
}

void TestKvLockButton::liftOutsideChangesNothing()
{
    QFETCH(bool, down);
    TouchScreen screen;
    Button button(&screen);
    button.setIsDown(down);
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);
    QVERIFY(button.isDown());
    screen.fingerTo(besideButton);
    QCOMPARE(button.isDown(), down);
    QCOMPARE(screen.colorAt(faceCorner), down ? pressColor : normalColor);
    screen.fingerUp(besideButton);
    QCOMPARE(button.isDown(), down);
    QCOMPARE(screen.colorAt(faceCorner), down ? pressColor : normalColor);
    QCOMPARE(button.heard, QStringList());
}

void TestKvLockButton::interruptedPressChangesNothing_data()
{
    QTest::addColumn<bool>("byHiding");
    QTest::newRow("hidden") << true;
    QTest::newRow("disabled") << false;
}

void TestKvLockButton::interruptedPressChangesNothing()
{
    QFETCH(bool, byHiding);
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);
    byHiding ? button.hide() : button.setEnabled(false);
    QVERIFY(!button.isDown());
    byHiding ? button.show() : button.setEnabled(true);
    screen.fingerUp(onButton);
    QVERIFY(!button.isDown());
    QCOMPARE(button.heard, QStringList());
}

void TestKvLockButton::setIsDownIsSilent()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(repaintsAfter(button, [&] { button.setIsDown(true); }));
    QVERIFY(button.isDown());
    QCOMPARE(screen.colorAt(faceCorner), pressColor);
    QVERIFY(repaintsAfter(button, [&] { button.setIsDown(false); }));
    QVERIFY(!button.isDown());
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    QCOMPARE(button.heard, QStringList());
}

void TestKvLockButton::isDownIsAPropertyForForms()
{
    KvLockButton button;
    QVERIFY(button.setProperty("isDown", true));
    QCOMPARE(button.isDown(), true);
}

void TestKvLockButton::otherButtonMayBeReleasedBySlot()
{
    TouchScreen screen;
    Button first(&screen);
    Button second(&screen);
    second.move(100, 200);
    connect(&first, &KvLockButton::btnReleased, &second, [&] { second.setIsDown(false); });
    connect(&second, &KvLockButton::btnReleased, &first, [&] { first.setIsDown(false); });
    QVERIFY(screen.turnOn());
    screen.tap(onButton);
    QVERIFY(first.isDown() && !second.isDown());
    screen.tap(second.geometry().center());
    QVERIFY(!first.isDown() && second.isDown());
}

void TestKvLockButton::slotDeletesButton()
{
    RUN_CHECK(checkSlotMayDelete<Button>(&KvLockButton::btnReleased, onButton));
}

void TestKvLockButton::disabledRefuses()
{
    TouchScreen screen;
    Button button(&screen);
    button.setEnabled(false);
    QVERIFY(screen.turnOn());
    const QColor dimmed = screen.colorAt(faceCorner);
    QVERIFY(isDimmedBlue(dimmed));
    screen.tap(onButton);
    QVERIFY(!button.isDown());
    QCOMPARE(button.heard, QStringList());
    QCOMPARE(screen.colorAt(faceCorner), dimmed);
}

void TestKvLockButton::showModes_data()
{
    addShowModes();
}

void TestKvLockButton::showModes()
{
    QFETCH(int, mode);
    QFETCH(bool, textSeen);
    TouchScreen screen;
    Button button(&screen);
    button.setDisplayText("UDP 100");
    button.setTextSize(24);
    if (mode >= 0) {
        button.setShowMode(KvLockButton::ShowMode(mode));
    }
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    QCOMPARE(!screen.inkIn(place, normalColor).isNull(), textSeen);
    button.setIsDown(true);
    QCOMPARE(screen.colorAt(faceCorner), pressColor);
    QCOMPARE(!screen.inkIn(place, pressColor).isNull(), textSeen);
}

void TestKvLockButton::takesImageSize()
{
    KvLockButton button;
    button.setGeometry(QRect(30, 40, 0, 0));
    button.setNormalImage(plain(QSize(140, 60), normalColor));
    QCOMPARE(button.sizeHint(), QSize(140, 60));
    QCOMPARE(button.geometry(), QRect(30, 40, 140, 60));
}

void TestKvLockButton::styleSheetPaints()
{
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(QSize(10, 10), normalColor));
    RUN_CHECK(checkStyleSheetPaints(screen, button, faceCorner));
}

FACTORY_TEST_MAIN(TestKvLockButton)
#include "tst_kvlockbutton.moc"
