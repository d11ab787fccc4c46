#include "kvwidget/popupview.h"

#include "testpopup.h"

#include "kvwidget/kviconbutton.h"
#include "touchscreen.h"

#include "support/testmain.h"

#include <QtTest>

class TestPopupViewFace : public QObject
{
    Q_OBJECT

private slots:
    void boxInTheMiddle_data();
    void boxInTheMiddle();
    void staysInTheMiddle();
    void buttonsOfEachType_data();
    void buttonsOfEachType();
    void buttonPositions();

    void linesFit_data();
    void linesFit();
    void longLineWraps();
    void endlessWordIsBroken();
    void versionOf32LettersIsBroken();
    void textIsPlain();
    void buttonTexts();
    void repaints();
    void styleSheetPaintsBeneath();
};

namespace
{

/// Lines of capitals only, so that each is one block of rows.
QString capitals(int lines)
{
    return QString("HHHHHHHHHHHHHHHHHHHH\n").repeated(lines).chopped(1);
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
    for (const QLatin1String name : {okName, cancelName}) {
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

} // namespace

void TestPopupViewFace::boxInTheMiddle_data()
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

void TestPopupViewFace::boxInTheMiddle()
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
}

void TestPopupViewFace::staysInTheMiddle()
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

void TestPopupViewFace::buttonsOfEachType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<bool>("cancel");
    QTest::newRow("OK and Cancel") << 0 << true << true;
    QTest::newRow("OK") << 1 << true << false;
    QTest::newRow("Cancel") << 2 << false << true;
    QTest::newRow("no button") << 3 << false << false;
}

void TestPopupViewFace::buttonsOfEachType()
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

void TestPopupViewFace::buttonPositions()
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

void TestPopupViewFace::linesFit_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("lines");
    QTest::newRow("one line") << 0 << 1;
    QTest::newRow("two lines") << 0 << 2;
    QTest::newRow("five lines") << 0 << 5;
    QTest::newRow("eight lines") << 0 << 8;
    QTest::newRow("four lines without buttons") << 3 << 4;
}

void TestPopupViewFace::linesFit()
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

void TestPopupViewFace::longLineWraps()
{
    TouchScreen screen;
    Popup popup(&screen);
    // At 30 px the line is 720 to 1200 px wide: two lines of 614.
    QVERIFY(showText(screen, popup, PopupView::NoButton,
                     "A line of text that is too long to stand in the box as one line"));
    QCOMPARE(linesSeen(popup), 2);
}

void TestPopupViewFace::endlessWordIsBroken()
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

void TestPopupViewFace::versionOf32LettersIsBroken()
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

void TestPopupViewFace::textIsPlain()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(showText(screen, popup, PopupView::NoButton, "1&2<br>3"));
    QCOMPARE(linesSeen(popup), 1);
}

void TestPopupViewFace::buttonTexts()
{
    Popup popup;
    QCOMPARE(popup.button(okName)->displayText(), QString("OK"));
    QCOMPARE(popup.button(cancelName)->displayText(), QString("Cancel"));
    popup.setOkText("Yes");
    popup.setCancelText("No");
    QCOMPARE(popup.button(okName)->displayText(), QString("Yes"));
    QCOMPARE(popup.button(cancelName)->displayText(), QString("No"));
    QCOMPARE(popup.button(okName)->property("showMode").value<KvIconButton::ShowMode>(),
             KvIconButton::ShowImageText);
}

void TestPopupViewFace::repaints()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(repaintsAfter(popup, [&] { popup.setText("new"); }));
    QVERIFY(repaintsAfter(popup, [&] { popup.setButtonType(PopupView::NoButton); }));
}

void TestPopupViewFace::styleSheetPaintsBeneath()
{
    TouchScreen screen;
    Popup popup(&screen);
    popup.setStyleSheet("PopupView { background-color: rgb(200, 20, 30); }");
    QVERIFY(screen.turnOn());
    // The picture's corners are transparent, its middle is not.
    QCOMPARE(screen.colorAt(QPoint(62, 100)), QColor(200, 20, 30));
    QVERIFY(screen.colorAt(QPoint(400, 130)).red() < 100);
}

FACTORY_TEST_MAIN(TestPopupViewFace)
#include "tst_popupview_face.moc"
