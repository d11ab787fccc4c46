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
    void setIsDownIsSilent();
    void isDownIsAPropertyForForms();
    void slotDeletesButton();
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

void TestKvLockButton::slotDeletesButton()
{
    RUN_CHECK(checkSlotMayDelete<Button>(&KvLockButton::btnReleased, onButton));
}

FACTORY_TEST_MAIN(TestKvLockButton)
#include "tst_kvlockbutton.moc"
