#include "kvwidget/cboolbutton.h"

#include "buttonchecks.h"

#include "support/testmain.h"

#include <QtTest>

namespace
{

const QRect place(620, 50, 80, 62);
const QPoint onButton = place.center();
const QPoint besideButton(50, 50);

const QColor onColor(0, 255, 0);
const QColor offColor(0, 0, 255);

class Button : public CBoolButton
{
public:
    explicit Button(QWidget *parent = nullptr)
        : CBoolButton(parent)
    {
        setGeometry(place);
        setButtonID("id_alsbtn");
        setOnImage(plain(place.size(), onColor));
        setOffImage(plain(place.size(), offColor));
        connect(this, &CBoolButton::btnReleased, this, [this](const QString &id, bool on) {
            heard << id + (on ? " on" : " off");
            stateWhenHeard = state();
        });
    }

    QStringList heard;
    bool stateWhenHeard = false;
};

} // namespace

class TestCBoolButton : public QObject
{
    Q_OBJECT

private slots:
    void tapFlipsAndTells();
    void liftOutsideChangesNothing();
    void interruptedPressChangesNothing();
    void fingerIsSeen();
    void slotDeletesButton();
    void disabledRefuses();
    void ownFaces();
    void takesImageSize();
    void propertiesForForms_data();
    void propertiesForForms();
    void styleSheetPaints();
};

void TestCBoolButton::tapFlipsAndTells()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(!button.state());
    QCOMPARE(screen.colorAt(onButton), offColor);
    screen.fingerDown(onButton);
    QVERIFY(!button.state());
    QCOMPARE(button.heard, QStringList());
    screen.fingerUp(onButton);
    QVERIFY(button.state());
    QCOMPARE(button.heard, QStringList{"id_alsbtn on"});
    QVERIFY(button.stateWhenHeard);
    QCOMPARE(screen.colorAt(onButton), onColor);
    screen.tap(onButton);
    QVERIFY(!button.state());
    QCOMPARE(button.heard, (QStringList{"id_alsbtn on", "id_alsbtn off"}));
    QVERIFY(!button.stateWhenHeard);
    QCOMPARE(screen.colorAt(onButton), offColor);
}

void TestCBoolButton::liftOutsideChangesNothing()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);
    screen.fingerTo(besideButton);
    screen.fingerUp(besideButton);
    QVERIFY(!button.state());
    QCOMPARE(button.heard, QStringList());
    QCOMPARE(screen.colorAt(onButton), offColor);
}

void TestCBoolButton::interruptedPressChangesNothing()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);
    button.setEnabled(false);
    button.setEnabled(true);
    screen.fingerUp(onButton);
    QVERIFY(!button.state());
    QCOMPARE(button.heard, QStringList());
}

void TestCBoolButton::fingerIsSeen()
{
    TouchScreen screen;
    Button button(&screen);
    button.setState(true);
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);
    const int green = screen.colorAt(onButton).green();
    QVERIFY(green > 150 && green < 240);
    screen.fingerTo(besideButton);
    QCOMPARE(screen.colorAt(onButton), onColor);
    screen.fingerUp(besideButton);
}

void TestCBoolButton::slotDeletesButton()
{
    RUN_CHECK(checkSlotMayDelete<Button>(&CBoolButton::btnReleased, onButton));
}

void TestCBoolButton::disabledRefuses()
{
    TouchScreen screen;
    Button button(&screen);
    button.setEnabled(false);
    QVERIFY(screen.turnOn());
    const QColor dimmed = screen.colorAt(onButton);
    QVERIFY(isDimmedBlue(dimmed));
    screen.fingerDown(onButton);
    QCOMPARE(screen.colorAt(onButton), dimmed);
    screen.fingerUp(onButton);
    QVERIFY(!button.state());
    QCOMPARE(button.heard, QStringList());
}

void TestCBoolButton::ownFaces()
{
    TouchScreen screen;
    CBoolButton button(&screen);
    button.move(place.topLeft());
    QVERIFY(screen.turnOn());
    QCOMPARE(button.geometry(), place);
    QVERIFY(!screen.inkIn(place, Qt::black).isNull());
    const QImage off = screen.grab(place).toImage();
    button.setState(true);
    const QImage on = screen.grab(place).toImage();
    QVERIFY(on != off);
    // The knob lies at the left when off, at the right when on, and is the lightest thing there.
    const QPoint left(23, 31);
    const QPoint right(57, 31);
    QVERIFY(off.pixelColor(left).lightness() > off.pixelColor(right).lightness());
    QVERIFY(on.pixelColor(right).lightness() > on.pixelColor(left).lightness());
}

void TestCBoolButton::takesImageSize()
{
    QCOMPARE(CBoolButton().sizeHint(), QSize(80, 62));
    CBoolButton button;
    button.setGeometry(QRect(30, 40, 0, 0));
    button.setOffImage(plain(QSize(70, 50), offColor));
    QCOMPARE(button.sizeHint(), QSize(70, 50));
    QCOMPARE(button.geometry(), QRect(30, 40, 70, 50));
}

void TestCBoolButton::propertiesForForms_data()
{
    addPropertyColumns();
    const QVariant image = plain(QSize(9, 9), Qt::red);
    QTest::newRow("buttonID") << QByteArray("buttonID") << QVariant("idCertification") << false;
    QTest::newRow("state") << QByteArray("state") << QVariant(true) << true;
    QTest::newRow("onImage") << QByteArray("onImage") << image << true;
    QTest::newRow("offImage") << QByteArray("offImage") << image << true;
}

void TestCBoolButton::propertiesForForms()
{
    checkProperty<Button>();
}

void TestCBoolButton::styleSheetPaints()
{
    TouchScreen screen;
    Button button(&screen);
    button.setOffImage(plain(QSize(10, 10), offColor));
    RUN_CHECK(checkStyleSheetPaints(screen, button, place.topLeft()));
    QCOMPARE(screen.colorAt(onButton), offColor);
}

FACTORY_TEST_MAIN(TestCBoolButton)
#include "tst_cboolbutton.moc"
