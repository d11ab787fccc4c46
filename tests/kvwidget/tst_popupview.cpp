#include "kvwidget/popupview.h"

#include "kvwidget/baseview.h"
#include "kvwidget/kviconbutton.h"
#include "touchscreen.h"

#include "hardware/unit.h"
#include "simlink/simulatedunit.h"
#include "support/testmain.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

/// A pop-up with an id, and the order in which its signals came.
class Popup : public PopupView
{
public:
    explicit Popup(QWidget *parent = nullptr)
        : PopupView(parent)
    {
        setPopupViewId("userdata");
        const auto hear = [this](const QString &what, const QString &id) {
            heard << what + " " + id;
            visibleWhenHeard = isVisible();
        };
        connect(this, &PopupView::ok, this, [=](const QString &id) { hear("ok", id); });
        connect(this, &PopupView::cancel, this, [=](const QString &id) { hear("cancel", id); });
        connect(this, &PopupView::timeout, this, [=](const QString &id) { hear("timeout", id); });
    }

    KvIconButton *button(const QString &name) const { return findChild<KvIconButton *>(name); }

    /// Where the middle of the button lies on the screen.
    QPoint middleOf(const QString &name) const
    {
        return button(name)->mapTo(window(), button(name)->rect().center());
    }

    QStringList heard;
    bool visibleWhenHeard = true;
};

const QString okName("popupview_ok");
const QString cancelName("popupview_cancel");

/// Lines of capitals only, so that each is one block of rows.
QString capitals(int lines)
{
    return QString("HHHHHHHHHHHHHHHHHHHH\n").repeated(lines).chopped(1);
}

/// Runs the event loop for \a ms, or until \a widget has gone. Gives the time that it took.
qint64 stays(const QWidget &widget, int ms)
{
    QElapsedTimer clock;
    clock.start();
    while (widget.isVisible() && clock.elapsed() < ms) {
        QTest::qWait(1);
    }
    return clock.elapsed();
}

/// The rows of \a area, counted from its top, in which a pixel is as light as text is.
QList<bool> rowsWithText(QWidget &widget, const QRect &area)
{
    const QImage seen = widget.grab(area).toImage();
    QList<bool> rows;
    for (int y = 0; y < seen.height(); ++y) {
        bool text = false;
        for (int x = 0; x < seen.width() && !text; ++x) {
            text = seen.pixelColor(x, y).lightness() > 150;
        }
        rows << text;
    }
    return rows;
}

int linesIn(const QList<bool> &rows)
{
    int lines = 0;
    for (int i = 1; i < rows.size(); ++i) {
        lines += rows.at(i) && !rows.at(i - 1) ? 1 : 0;
    }
    return lines;
}

/// The box without its frame and without the rows of its buttons.
QRect textPart(const Popup &popup)
{
    QRect part = popup.rect().adjusted(10, 8, -10, -8);
    for (const QString &name : {okName, cancelName}) {
        if (popup.button(name)->isVisible()) {
            part.setBottom(popup.button(name)->geometry().top() - 1);
        }
    }
    return part;
}

int linesSeen(Popup &popup)
{
    return linesIn(rowsWithText(popup, textPart(popup)));
}

/// Shows the screen with that text in the pop-up; false when it does not appear.
bool showText(TouchScreen &screen, Popup &popup, PopupView::ButtonType type, const QString &text)
{
    popup.setButtonType(type);
    popup.setText(text);
    return screen.turnOn();
}

/// Shows the screen, and only then the pop-up, for \a ms; false when the screen does not appear.
bool showFor(TouchScreen &screen, Popup &popup, int ms)
{
    popup.hide();
    popup.setShowTimeout(ms);
    const bool shown = screen.turnOn();
    popup.show();
    return shown;
}

/// A page that fills the screen.
class FullPage : public BaseView
{
public:
    explicit FullPage(QWidget *screen)
        : BaseView("page", screen)
    {
        setGeometry(0, 0, 800, 480);
    }
};

/// A button that fills the screen and counts its clicks: the touches that reach it.
class ButtonBelow : public KvIconButton
{
public:
    explicit ButtonBelow(QWidget *screen)
        : KvIconButton(screen)
    {
        setGeometry(0, 0, 800, 480);
        connect(this, &KvIconButton::btnClicked, this, [this] { ++clicks; });
    }

    int clicks = 0;
};

} // namespace

class TestPopupView : public QObject
{
    Q_OBJECT

private slots:
    void numbers();
    void boxInTheMiddle_data();
    void boxInTheMiddle();
    void staysInTheMiddle();
    void buttonsOfEachType_data();
    void buttonsOfEachType();
    void buttonPositions();
    void comesToTheTop();

    void textIsCentred();
    void linesFit_data();
    void linesFit();
    void updateQuestionFits();
    void longLineWraps();
    void endlessWordIsBroken();
    void versionOf32LettersIsBroken();
    void textIsPlain();
    void buttonTexts();
    void repaints();
    void styleSheetPaintsBeneath();

    void okTells();
    void cancelTells();
    void liftBesideAButton();
    void disabledButton_data();
    void disabledButton();
    void unknownButtonNames();
    void settersAreSilent();

    void touchesBesideTheBox();
    void touchesOnTheBox();
    void pageThatTakesTheTouchesIsDimmed();
    void otherParentsAreNotDimmed();

    void baseViewGoesWithCancelAndTimeout_data();
    void baseViewGoesWithCancelAndTimeout();
    void baseViewWithOtherContent_data();
    void baseViewWithOtherContent();
    void baseViewStaysForOkAndHide_data();
    void baseViewStaysForOkAndHide();
    void otherParentsStay();
    void baseViewUsedAgainBySlot();

    void timeout();
    void timeoutUnderTimeFactor_data();
    void timeoutUnderTimeFactor();
    void noTimeout_data();
    void noTimeout();
    void showWhileVisibleStartsAnew();
    void timeoutCountsFromShow();
    void timeoutTurnedOffByNextShow();
    void hiddenInTime();
    void shownWithItsParent();

    void slotDeletes_data();
    void slotDeletes();
};

void TestPopupView::numbers()
{
    QCOMPARE(int(PopupView::OkCancel), 0);
    QCOMPARE(int(PopupView::OkOnly), 1);
    QCOMPARE(int(PopupView::CancelOnly), 2);
    QCOMPARE(int(PopupView::NoButton), 3);
    QCOMPARE(int(PopupView::ButtonsAtBottom), 1);
}

void TestPopupView::boxInTheMiddle_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QRect>("box");
    // (800 - 676) / 2 = 62, (480 - 280) / 2 = 100, (480 - 164) / 2 = 158
    QTest::newRow("no type set") << -1 << QRect(62, 100, 676, 280);
    QTest::newRow("OK and Cancel") << 0 << QRect(62, 100, 676, 280);
    QTest::newRow("OK") << 1 << QRect(62, 100, 676, 280);
    QTest::newRow("Cancel") << 2 << QRect(62, 100, 676, 280);
    QTest::newRow("no button") << 3 << QRect(62, 158, 676, 164);
}

void TestPopupView::boxInTheMiddle()
{
    QFETCH(int, type);
    QFETCH(QRect, box);
    TouchScreen screen;
    QVERIFY(screen.turnOn());
    Popup popup(&screen);
    if (type >= 0) {
        popup.setButtonType(PopupView::ButtonType(type));
    }
    popup.show();
    QCOMPARE(popup.geometry(), box);
    QCOMPARE(popup.sizeHint(), box.size());
    // Its picture fills it, but for the rounded corners and a soft edge.
    const QRect drawn = screen.inkIn(screen.rect(), Qt::black);
    QVERIFY(box.contains(drawn));
    QVERIFY(drawn.contains(box.adjusted(8, 8, -8, -8)));
    // The picture is the one of that size: its frame runs along the lower edge.
    const QImage seen = screen.grab(box).toImage();
    int lightest = 0;
    for (int y = box.height() - 8; y < box.height(); ++y) {
        lightest = qMax(lightest, seen.pixelColor(338, y).lightness());
    }
    QVERIFY(lightest > seen.pixelColor(338, box.height() - 20).lightness() + 20);
}

void TestPopupView::staysInTheMiddle()
{
    TouchScreen screen;
    QWidget other(&screen);
    other.setGeometry(0, 0, 700, 200);
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    screen.resize(1000, 600);
    QCoreApplication::processEvents();
    QCOMPARE(popup.geometry(), QRect(162, 160, 676, 280));
    popup.setButtonType(PopupView::NoButton);
    QCOMPARE(popup.geometry(), QRect(162, 218, 676, 164));
    popup.hide();
    screen.resize(800, 480);
    popup.show();
    QCOMPARE(popup.geometry(), QRect(62, 158, 676, 164));

    popup.setParent(&other);
    popup.show();
    QCOMPARE(popup.geometry(), QRect(12, 18, 676, 164));
}

void TestPopupView::buttonsOfEachType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<bool>("cancel");
    QTest::newRow("OK and Cancel") << 0 << true << true;
    QTest::newRow("OK") << 1 << true << false;
    QTest::newRow("Cancel") << 2 << false << true;
    QTest::newRow("no button") << 3 << false << false;
}

void TestPopupView::buttonsOfEachType()
{
    QFETCH(int, type);
    QFETCH(bool, ok);
    QFETCH(bool, cancel);
    TouchScreen screen;
    Popup popup(&screen);
    popup.setButtonType(PopupView::ButtonType(type));
    QVERIFY(screen.turnOn());
    QCOMPARE(popup.button(okName)->isVisible(), ok);
    QCOMPARE(popup.button(cancelName)->isVisible(), cancel);
    QCOMPARE(popup.button(okName)->buttonID(), okName);
    QCOMPARE(popup.button(cancelName)->buttonID(), cancelName);
    const QRect left = popup.button(okName)->geometry();
    const QRect right = popup.button(cancelName)->geometry();
    if (ok && cancel) {
        // As far from the middle of the box on either side.
        QCOMPARE(left.size(), QSize(140, 60));
        QVERIFY(left.right() < right.left());
        QCOMPARE(left.left(), 676 - (right.left() + 140));
        QCOMPARE(left.top(), right.top());
    } else if (ok) {
        QCOMPARE(left.left(), 268);
    } else if (cancel) {
        QCOMPARE(right.left(), 268);
    }
    if (ok || cancel) {
        QVERIFY(popup.rect().adjusted(0, 140, 0, -10).contains(ok ? left : right));
    }
}

void TestPopupView::buttonPositions()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    const int atBottom = popup.button(okName)->y();
    popup.setButtonPosition(PopupView::ButtonPosition(0));
    popup.setText(capitals(1));
    const int underShort = popup.button(okName)->y();
    QVERIFY(underShort < atBottom);
    QVERIFY(popup.button(okName)->geometry().top() > textPart(popup).top() + 30);
    QCOMPARE(linesSeen(popup), 1);
    popup.setText(capitals(4));
    QVERIFY(popup.button(okName)->y() > underShort);
    QVERIFY(popup.button(okName)->y() <= atBottom);
    QCOMPARE(linesSeen(popup), 4);
    popup.setButtonPosition(PopupView::ButtonsAtBottom);
    QCOMPARE(popup.button(okName)->y(), atBottom);
}

void TestPopupView::comesToTheTop()
{
    TouchScreen screen;
    Popup popup(&screen);
    popup.hide();
    KvWidget later(&screen);
    later.setGeometry(0, 0, 800, 480);
    QVERIFY(screen.turnOn());
    popup.show();
    QCOMPARE(screen.childAt(400, 150), &popup);
}

void TestPopupView::textIsCentred()
{
    TouchScreen screen;
    Popup popup(&screen);
    popup.setButtonType(PopupView::NoButton);
    QVERIFY(screen.turnOn());
    const QImage empty = popup.grab().toImage();
    popup.setText("HHHH");
    QCOMPARE(popup.text(), QString("HHHH"));
    const QImage seen = popup.grab().toImage();
    QRect ink;
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            if (seen.pixel(x, y) != empty.pixel(x, y)) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    QVERIFY(qAbs(ink.center().x() - popup.rect().center().x()) <= 2);
    QVERIFY(qAbs(ink.center().y() - popup.rect().center().y()) <= 3);
    // A capital is 1409 of 2048 units high: 19 px of a 28 px font, 21 px of a 30 px one.
    QVERIFY2(ink.height() >= 18 && ink.height() <= 22, qPrintable(QString::number(ink.height())));
}

void TestPopupView::linesFit_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("lines");
    QTest::newRow("one line") << 0 << 1;
    QTest::newRow("two lines") << 0 << 2;
    QTest::newRow("five lines") << 0 << 5;
    QTest::newRow("eight lines") << 0 << 8;
    QTest::newRow("four lines without buttons") << 3 << 4;
}

void TestPopupView::linesFit()
{
    QFETCH(int, type);
    QFETCH(int, lines);
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showText(screen, popup, PopupView::ButtonType(type), capitals(lines)));
    const QList<bool> rows = rowsWithText(popup, textPart(popup));
    QCOMPARE(linesIn(rows), lines);
    QVERIFY2(!rows.first() && !rows.last(), "the text touches the box or its buttons");
}

void TestPopupView::updateQuestionFits()
{
    TouchScreen screen;
    Popup popup(&screen);
    popup.setText("User Update via USB0?\nNewCUSTVer:QM_HU_22.10.04_R1\n"
                  "NewSDKVer:SP_SDK_3.2.117\nVerifing...");
    QVERIFY(screen.turnOn());
    const QList<bool> rows = rowsWithText(popup, textPart(popup));
    QVERIFY(!rows.first() && !rows.last());
    // Four lines of at least 28 px, whose pitch is 1.149 of it: 3 pitches and one capital of 19 px.
    QVERIFY(rows.lastIndexOf(true) - rows.indexOf(true) >= 3 * 32 + 19);
}

void TestPopupView::longLineWraps()
{
    TouchScreen screen;
    Popup popup(&screen);
    // At 30 px the line is 720 to 1200 px wide: two lines of 614.
    QVERIFY(showText(screen, popup, PopupView::NoButton,
                     "A line of text that is too long to stand in the box as one line"));
    QCOMPARE(linesSeen(popup), 2);
}

void TestPopupView::endlessWordIsBroken()
{
    TouchScreen screen;
    Popup popup(&screen);
    // At 21 px a W takes 20 px: 31 in a line of 614, so 150 need five lines of 24 px, for which 132
    // are enough. At 22 px they need six of 25.
    QVERIFY(showText(screen, popup, PopupView::NoButton, QString("W").repeated(150)));
    QCOMPARE(linesSeen(popup), 5);
    const QList<bool> besideText = rowsWithText(popup, QRect(8, 8, 20, 148));
    QVERIFY(!besideText.contains(true));
}

void TestPopupView::versionOf32LettersIsBroken()
{
    TouchScreen screen;
    Popup popup(&screen);
    const QString version = QString("H").repeated(32);
    QVERIFY(showText(screen, popup, PopupView::OkCancel,
                     "User Update via USB0?\nNewCUSTVer:" + version + "\nNewSDKVer:" + version
                         + "\nVerifing..."));
    const QList<bool> rows = rowsWithText(popup, textPart(popup));
    QCOMPARE(linesIn(rows), 6);
    QVERIFY2(!rows.first() && !rows.last(), "the text touches the box or its buttons");
    // Six lines of 22 px or more: five pitches of 1.149 of that, and a capital of 15 px.
    QVERIFY(rows.lastIndexOf(true) - rows.indexOf(true) >= 5 * 25 + 15);
}

void TestPopupView::textIsPlain()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showText(screen, popup, PopupView::NoButton, "1&2<br>3"));
    QCOMPARE(linesSeen(popup), 1);
}

void TestPopupView::buttonTexts()
{
    Popup popup;
    QCOMPARE(popup.button(okName)->displayText(), QString("OK"));
    QCOMPARE(popup.button(cancelName)->displayText(), QString("Cancel"));
    popup.setOkText("Yes");
    popup.setCancelText("No");
    QCOMPARE(popup.button(okName)->displayText(), QString("Yes"));
    QCOMPARE(popup.button(cancelName)->displayText(), QString("No"));
    QCOMPARE(popup.button(okName)->showMode(), KvIconButton::ShowImageText);
}

void TestPopupView::repaints()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(repaintsAfter(popup, [&] { popup.setText("new"); }));
    QVERIFY(repaintsAfter(popup, [&] { popup.setButtonType(PopupView::NoButton); }));
}

void TestPopupView::styleSheetPaintsBeneath()
{
    TouchScreen screen;
    Popup popup(&screen);
    popup.setStyleSheet("PopupView { background-color: rgb(200, 20, 30); }");
    QVERIFY(screen.turnOn());
    // The picture's corners are transparent, its middle is not.
    QCOMPARE(screen.colorAt(QPoint(62, 100)), QColor(200, 20, 30));
    QVERIFY(screen.colorAt(QPoint(400, 130)).red() < 100);
}

void TestPopupView::okTells()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    screen.fingerDown(popup.middleOf(okName));
    QCOMPARE(popup.heard, QStringList());
    screen.fingerUp(popup.middleOf(okName));
    QCOMPARE(popup.heard, QStringList{"ok userdata"});
    QVERIFY(!popup.visibleWhenHeard);
    QVERIFY(popup.isHidden());
}

void TestPopupView::cancelTells()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    screen.tap(popup.middleOf(cancelName));
    QCOMPARE(popup.heard, QStringList{"cancel userdata"});
    QVERIFY(!popup.visibleWhenHeard);
    QVERIFY(popup.isHidden());
}

void TestPopupView::liftBesideAButton()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    screen.fingerDown(popup.middleOf(okName));
    screen.fingerTo(popup.middleOf(cancelName));
    screen.fingerUp(popup.middleOf(cancelName));
    QCOMPARE(popup.heard, QStringList());
    QVERIFY(popup.isVisible());
}

void TestPopupView::disabledButton_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("told");
    QTest::newRow("OK") << okName << "ok userdata";
    QTest::newRow("Cancel") << cancelName << "cancel userdata";
}

void TestPopupView::disabledButton()
{
    QFETCH(QString, name);
    QFETCH(QString, told);
    TouchScreen screen;
    Popup popup(&screen);
    popup.setButtonDisabled(name, true);
    QVERIFY(screen.turnOn());
    const QImage disabledFace = popup.button(name)->grab().toImage();
    screen.tap(popup.middleOf(name));
    QCOMPARE(popup.heard, QStringList());
    QVERIFY(popup.isVisible());

    popup.setButtonDisabled(name, false);
    QVERIFY(popup.button(name)->grab().toImage() != disabledFace);
    screen.tap(popup.middleOf(name));
    QCOMPARE(popup.heard, QStringList{told});
}

void TestPopupView::unknownButtonNames()
{
    Popup popup;
    popup.setButtonDisabled("popupview_OK", true);
    popup.setButtonDisabled("ok", true);
    popup.setButtonDisabled(QString(), true);
    QVERIFY(!popup.button(okName)->disableState());
    QVERIFY(!popup.button(cancelName)->disableState());
    popup.setButtonDisabled(okName, true);
    QVERIFY(popup.button(okName)->disableState());
    QVERIFY(!popup.button(cancelName)->disableState());
}

void TestPopupView::settersAreSilent()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(popup.setProperty("popupViewId", "other"));
    QCOMPARE(popup.popupViewId(), QString("other"));
    QVERIFY(popup.setProperty("text", "text"));
    QCOMPARE(popup.text(), QString("text"));
    popup.setButtonType(PopupView::CancelOnly);
    popup.setButtonPosition(PopupView::ButtonsUnderText);
    popup.setShowTimeout(1);
    popup.setOkText("a");
    popup.setCancelText("b");
    popup.setButtonDisabled(okName, true);
    QTest::qWait(30);
    QCOMPARE(popup.heard, QStringList());
    QVERIFY(popup.isVisible());
}

void TestPopupView::touchesBesideTheBox()
{
    TouchScreen screen;
    ButtonBelow below(&screen);
    QWidget layer(&screen);
    layer.setGeometry(0, 0, 800, 480);
    Popup popup(&layer);
    popup.setButtonType(PopupView::NoButton);
    // The framework's layers reach no further than their children.
    layer.setMask(popup.geometry());
    QVERIFY(screen.turnOn());
    screen.tap(QPoint(400, 157));
    screen.tap(QPoint(61, 200));
    QCOMPARE(below.clicks, 2);
    screen.tap(QPoint(400, 158));
    screen.tap(QPoint(62, 200));
    QCOMPARE(below.clicks, 2);
}

void TestPopupView::touchesOnTheBox()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    screen.tap(QPoint(400, 150));
    QCOMPARE(screen.touches(), 0);
    QVERIFY(popup.isVisible());
    screen.tap(QPoint(10, 10));
    QCOMPARE(screen.touches(), 1);
}

void TestPopupView::pageThatTakesTheTouchesIsDimmed()
{
    TouchScreen screen;
    screen.setPalette(QPalette(Qt::white, QColor(200, 200, 200)));
    FullPage page(&screen);
    Popup popup(&page);
    popup.hide();
    QVERIFY(screen.turnOn());
    const QPoint besideBox(10, 10);
    QCOMPARE(screen.colorAt(besideBox).red(), 200);
    QVERIFY(repaintsAfter(page, [&] { popup.show(); }));
    const int dimmed = screen.colorAt(besideBox).red();
    QVERIFY2(dimmed > 40 && dimmed < 120, qPrintable(QString::number(dimmed)));
    QVERIFY(repaintsAfter(page, [&] { popup.hide(); }));
    QCOMPARE(screen.colorAt(besideBox).red(), 200);
}

void TestPopupView::otherParentsAreNotDimmed()
{
    TouchScreen screen;
    screen.setPalette(QPalette(Qt::white, QColor(200, 200, 200)));
    QWidget layer(&screen);
    layer.setGeometry(0, 0, 800, 480);
    Popup popup(&layer);
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(QPoint(10, 10)).red(), 200);
}

void TestPopupView::baseViewGoesWithCancelAndTimeout_data()
{
    QTest::addColumn<bool>("byCancel");
    QTest::newRow("cancel") << true;
    QTest::newRow("time-out") << false;
}

void TestPopupView::baseViewGoesWithCancelAndTimeout()
{
    QFETCH(bool, byCancel);
    TouchScreen screen;
    ButtonBelow below(&screen);
    const QPointer<BaseView> page(new BaseView("setup UserUpdate", &screen));
    page->setGeometry(0, 0, 800, 480);
    QWidget hiddenOne(page);
    hiddenOne.hide();
    Popup popup(page);
    popup.setShowTimeout(byCancel ? 0 : 50);
    QVERIFY(screen.turnOn());
    QWidget windowOfThePage(page, Qt::Window);
    windowOfThePage.show();
    screen.tap(QPoint(10, 10));
    QCOMPARE(below.clicks, 0);
    if (byCancel) {
        screen.tap(popup.middleOf(cancelName));
    } else {
        QTRY_VERIFY(!popup.isVisible());
    }
    QVERIFY(page);
    QVERIFY(page->isHidden());
    screen.tap(QPoint(10, 10));
    QCOMPARE(below.clicks, 1);
}

void TestPopupView::baseViewWithOtherContent_data()
{
    baseViewGoesWithCancelAndTimeout_data();
}

void TestPopupView::baseViewWithOtherContent()
{
    QFETCH(bool, byCancel);
    TouchScreen screen;
    FullPage page(&screen);
    QWidget content(&page);
    Popup popup(&page);
    popup.setShowTimeout(byCancel ? 0 : 50);
    QVERIFY(screen.turnOn());
    if (byCancel) {
        screen.tap(popup.middleOf(cancelName));
    }
    QTRY_VERIFY(popup.isHidden());
    QVERIFY(page.isVisible());
    QVERIFY(content.isVisible());
}

void TestPopupView::baseViewStaysForOkAndHide_data()
{
    QTest::addColumn<bool>("byOk");
    QTest::newRow("OK") << true;
    QTest::newRow("hide()") << false;
}

void TestPopupView::baseViewStaysForOkAndHide()
{
    QFETCH(bool, byOk);
    TouchScreen screen;
    FullPage page(&screen);
    Popup popup(&page);
    QVERIFY(screen.turnOn());
    if (byOk) {
        screen.tap(popup.middleOf(okName));
    } else {
        popup.hide();
    }
    QVERIFY(popup.isHidden());
    QVERIFY(page.isVisible());
    QCOMPARE(popup.heard, byOk ? QStringList{"ok userdata"} : QStringList());
}

void TestPopupView::otherParentsStay()
{
    TouchScreen screen;
    FullPage page(&screen);
    KvWidget between(&page);
    between.setGeometry(0, 0, 800, 480);
    Popup popup(&between);
    QVERIFY(screen.turnOn());
    screen.tap(popup.middleOf(cancelName));
    QVERIFY(between.isVisible());
    QVERIFY(page.isVisible());
}

void TestPopupView::baseViewUsedAgainBySlot()
{
    TouchScreen screen;
    FullPage page(&screen);
    QWidget answer(&page);
    answer.hide();
    Popup popup(&page);
    connect(&popup, &PopupView::cancel, &answer, [&] { answer.show(); });
    QVERIFY(screen.turnOn());
    screen.tap(popup.middleOf(cancelName));
    QVERIFY(page.isVisible());
    QVERIFY(answer.isVisible());
}

void TestPopupView::timeout()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showFor(screen, popup, 200));
    const qint64 stayed = stays(popup, 5000);
    QVERIFY2(stayed >= 190 && stayed < 2000, qPrintable(QString::number(stayed)));
    QCOMPARE(popup.heard, QStringList{"timeout userdata"});
    QVERIFY(!popup.visibleWhenHeard);
    QVERIFY(popup.isHidden());
}

void TestPopupView::timeoutUnderTimeFactor_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("timeout");
    QTest::addColumn<int>("real");
    QTest::newRow("fast") << 100.0 << 30000 << 300;
    QTest::newRow("slow") << 0.5 << 150 << 300;
}

void TestPopupView::timeoutUnderTimeFactor()
{
    QFETCH(double, factor);
    QFETCH(int, timeout);
    QFETCH(int, real);
    const QTemporaryDir folder;
    hardware::Unit unit(folder.path(), factor);
    const simlink::SimulatedUnit link(unit);
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showFor(screen, popup, timeout));
    const qint64 stayed = stays(popup, 10000);
    QVERIFY2(stayed >= real - 10 && stayed < real + 2000, qPrintable(QString::number(stayed)));
}

void TestPopupView::noTimeout_data()
{
    QTest::addColumn<int>("ms");
    QTest::newRow("0") << 0;
    QTest::newRow("below 0") << -1;
}

void TestPopupView::noTimeout()
{
    QFETCH(int, ms);
    TouchScreen screen;
    Popup popup(&screen);
    popup.setShowTimeout(ms);
    QVERIFY(screen.turnOn());
    popup.show();
    QVERIFY(stays(popup, 150) >= 150);
    QVERIFY(popup.isVisible());
}

void TestPopupView::showWhileVisibleStartsAnew()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showFor(screen, popup, 300));
    QVERIFY(stays(popup, 200) >= 200);
    popup.setText("capture turned off");
    popup.setShowTimeout(300);
    popup.show();
    const qint64 stayed = stays(popup, 5000);
    QVERIFY2(stayed >= 290, qPrintable(QString::number(stayed)));
    QCOMPARE(popup.heard, QStringList{"timeout userdata"});
}

void TestPopupView::timeoutCountsFromShow()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showFor(screen, popup, 200));
    // Without a show() the new time is not in force yet.
    popup.setShowTimeout(100000);
    const qint64 stayed = stays(popup, 5000);
    QVERIFY2(stayed >= 190 && stayed < 2000, qPrintable(QString::number(stayed)));
}

void TestPopupView::timeoutTurnedOffByNextShow()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showFor(screen, popup, 100));
    popup.setShowTimeout(0);
    popup.show();
    QVERIFY(stays(popup, 250) >= 250);
}

void TestPopupView::hiddenInTime()
{
    TouchScreen screen;
    FullPage page(&screen);
    Popup popup(&page);
    popup.setShowTimeout(50);
    QVERIFY(screen.turnOn());
    popup.hide();
    QTest::qWait(150);
    QCOMPARE(popup.heard, QStringList());
    QVERIFY(page.isVisible());
}

void TestPopupView::shownWithItsParent()
{
    TouchScreen screen;
    FullPage page(&screen);
    page.hide();
    Popup popup(&page);
    popup.setShowTimeout(200);
    popup.show();
    QVERIFY(screen.turnOn());
    QTest::qWait(300);
    QCOMPARE(popup.heard, QStringList());
    page.show();
    QVERIFY(popup.isVisible());
    const qint64 stayed = stays(popup, 5000);
    QVERIFY2(stayed >= 190, qPrintable(QString::number(stayed)));
    QCOMPARE(popup.heard, QStringList{"timeout userdata"});
}

void TestPopupView::slotDeletes_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<bool>("page");
    for (const char *signal : {"ok", "cancel", "timeout"}) {
        QTest::addRow("pop-up on %s", signal) << signal << false;
        QTest::addRow("page on %s", signal) << signal << true;
    }
}

void TestPopupView::slotDeletes()
{
    QFETCH(QString, signal);
    QFETCH(bool, page);
    TouchScreen screen;
    const QPointer<BaseView> view(new FullPage(&screen));
    const QPointer<Popup> popup(new Popup(view));
    const auto destroy = [&] { delete (page ? static_cast<QWidget *>(view) : popup); };
    connect(popup, &PopupView::ok, &screen, destroy);
    connect(popup, &PopupView::cancel, &screen, destroy);
    connect(popup, &PopupView::timeout, &screen, destroy);
    popup->setShowTimeout(signal == "timeout" ? 50 : 0);
    QVERIFY(screen.turnOn());
    if (signal != "timeout") {
        screen.tap(popup->middleOf(signal == "ok" ? okName : cancelName));
    }
    QTRY_VERIFY(popup.isNull());
    QCOMPARE(view.isNull(), page);
    if (view) {
        // The pop-up that is gone counts as gone.
        QCOMPARE(view->isVisible(), signal == "ok");
    }
}

FACTORY_TEST_MAIN(TestPopupView)
#include "tst_popupview.moc"
