#include "kvwidget/kviconbutton.h"

#include "testiconbutton.h"

#include "support/testmain.h"

#include <QPointer>
#include <QtTest>

class TestKvIconButton : public QObject
{
    Q_OBJECT

private slots:
    void firstState();
    void modesHaveTheirNumbers();
    void liftInside();
    void liftOutside();
    void liftAfterLeavingAndComingBack();
    void fingerFromElsewhere();
    void otherMouseButtons();
    void secondQuickTap();
    void interruptedPress_data();
    void interruptedPress();
    void disabledRefuses_data();
    void disabledRefuses();
    void disabledByEitherState();
    void slotDeletesButton_data();
    void slotDeletesButton();
};

namespace
{

QStringList fullTap()
{
    return {"released usbtest", "clicked usbtest"};
}

} // namespace

void TestKvIconButton::firstState()
{
    KvIconButton button;
    QCOMPARE(button.property("showMode").value<KvIconButton::ShowMode>(), KvIconButton::ShowImage);
    QCOMPARE(button.property("disableMode").value<KvIconButton::DisableMode>(),
             KvIconButton::DisableNone);
    QCOMPARE(button.disableState(), false);
    QCOMPARE(button.buttonID(), QString());
    QCOMPARE(button.displayText(), QString());
}

void TestKvIconButton::modesHaveTheirNumbers()
{
    QCOMPARE(int(KvIconButton::ShowImage), 0);
    QCOMPARE(int(KvIconButton::ShowImageText), 1);
    QCOMPARE(int(KvIconButton::DisableNone), 0);
    QCOMPARE(int(KvIconButton::DisableImage), 1);
    QCOMPARE(int(KvIconButton::DisableText), 2);
    QCOMPARE(int(KvIconButton::DisableImageText), 3);
}

void TestKvIconButton::liftInside()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);
    QCOMPARE(button.heard, QStringList());
    screen.fingerUp(place.bottomRight());
    QCOMPARE(button.heard, fullTap());
}

void TestKvIconButton::liftOutside()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);
    screen.fingerTo(besideButton);
    screen.fingerUp(place.bottomRight() + QPoint(1, 0));
    QCOMPARE(button.heard, QStringList());
    screen.tap(onButton);
    QCOMPARE(button.heard, fullTap());
}

void TestKvIconButton::liftAfterLeavingAndComingBack()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);
    screen.fingerTo(besideButton);
    screen.fingerTo(onButton);
    screen.fingerUp(onButton);
    QCOMPARE(button.heard, fullTap());
}

void TestKvIconButton::fingerFromElsewhere()
{
    TouchScreen screen;
    Button button(&screen);
    button.setPressImage(plain(place.size(), pressColor));
    QVERIFY(screen.turnOn());
    screen.fingerDown(besideButton);
    screen.fingerTo(onButton);
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    screen.fingerUp(onButton);
    QCOMPARE(button.heard, QStringList());
}

void TestKvIconButton::otherMouseButtons()
{
    TouchScreen screen;
    Button button(&screen);
    button.setPressImage(plain(place.size(), pressColor));
    QVERIFY(screen.turnOn());
    QTest::mousePress(screen.windowHandle(), Qt::RightButton, Qt::NoModifier, onButton);
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    QTest::mouseRelease(screen.windowHandle(), Qt::RightButton, Qt::NoModifier, onButton);
    QCOMPARE(button.heard, QStringList());

    screen.fingerDown(onButton);
    QTest::mouseRelease(&button, Qt::RightButton, Qt::NoModifier, QPoint(5, 5));
    QCOMPARE(button.heard, QStringList());
    screen.fingerUp(onButton);
    QCOMPARE(button.heard, fullTap());
}

void TestKvIconButton::secondQuickTap()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    // Presses and lifts twice; the second press comes as a double click.
    QTest::mouseDClick(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, onButton);
    QCOMPARE(button.heard, fullTap() + fullTap());
}

void TestKvIconButton::interruptedPress_data()
{
    QTest::addColumn<QString>("interruption");
    QTest::newRow("button hidden") << "hide";
    QTest::newRow("page hidden") << "hide page";
    QTest::newRow("widget disabled") << "disable";
    QTest::newRow("page disabled") << "disable page";
    QTest::newRow("disable state") << "disable state";
}

void TestKvIconButton::interruptedPress()
{
    QFETCH(QString, interruption);
    TouchScreen screen;
    QWidget page(&screen);
    page.resize(screen.size());
    Button button(&page);
    button.setPressImage(plain(place.size(), pressColor));
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);

    if (interruption == "hide") {
        button.hide();
        button.show();
    } else if (interruption == "hide page") {
        page.hide();
        page.show();
    } else if (interruption == "disable") {
        button.setEnabled(false);
        button.setEnabled(true);
    } else if (interruption == "disable page") {
        page.setEnabled(false);
        page.setEnabled(true);
    } else {
        button.setDisableState(true);
        button.setDisableState(false);
    }
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    screen.fingerTo(onButton + QPoint(5, 5));
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    screen.fingerUp(onButton + QPoint(5, 5));
    QCOMPARE(button.heard, QStringList());
    screen.tap(onButton);
    QCOMPARE(button.heard, fullTap());
}

void TestKvIconButton::disabledRefuses_data()
{
    QTest::addColumn<bool>("byState");
    QTest::newRow("setDisableState") << true;
    QTest::newRow("setEnabled") << false;
}

void TestKvIconButton::disabledRefuses()
{
    QFETCH(bool, byState);
    TouchScreen screen;
    Button button(&screen);
    button.setPressImage(plain(place.size(), pressColor));
    button.setOverImage(plain(place.size(), overColor));
    byState ? button.setDisableState(true) : button.setEnabled(false);
    QVERIFY(screen.turnOn());
    const QColor disabledFace = screen.colorAt(faceCorner);
    screen.fingerDown(onButton);
    QCOMPARE(screen.colorAt(faceCorner), disabledFace);
    screen.fingerUp(onButton);
    QCOMPARE(button.heard, QStringList());
    QCOMPARE(screen.touches(), 0);

    byState ? button.setDisableState(false) : button.setEnabled(true);
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    screen.tap(onButton);
    QCOMPARE(button.heard, fullTap());
}

void TestKvIconButton::disabledByEitherState()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    button.setDisableState(true);
    QVERIFY(button.isEnabled());
    button.setEnabled(false);
    button.setDisableState(false);
    QVERIFY(!button.disableState());
    screen.tap(onButton);
    QCOMPARE(button.heard, QStringList());
}

void TestKvIconButton::slotDeletesButton_data()
{
    QTest::addColumn<bool>("onRelease");
    QTest::newRow("on btnReleased") << true;
    QTest::newRow("on btnClicked") << false;
}

void TestKvIconButton::slotDeletesButton()
{
    QFETCH(bool, onRelease);
    TouchScreen screen;
    const QPointer<QWidget> page(new QWidget(&screen));
    page->resize(screen.size());
    auto *button = new Button(page);
    const QSignalSpy clicks(button, &KvIconButton::btnClicked);
    const auto deletePage = [page] { delete page; };
    if (onRelease) {
        connect(button, &KvIconButton::btnReleased, &screen, deletePage);
    } else {
        connect(button, &KvIconButton::btnClicked, &screen, deletePage);
    }
    QVERIFY(screen.turnOn());
    screen.tap(onButton);
    QVERIFY(page.isNull());
    QCOMPARE(clicks.count(), onRelease ? 0 : 1);
}

FACTORY_TEST_MAIN(TestKvIconButton)
#include "tst_kviconbutton.moc"
