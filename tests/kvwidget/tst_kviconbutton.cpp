#include "kvwidget/kviconbutton.h"

#include "buttonchecks.h"
#include "testpagebutton.h"

#include "support/testmain.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

namespace
{

const QColor overColor(0, 255, 0);
const QColor disableColor(255, 255, 0);

/// A button with a normal image, and the order in which its signals came.
class Button : public KvIconButton
{
public:
    explicit Button(QWidget *parent = nullptr)
        : KvIconButton(parent)
    {
        setGeometry(place);
        setButtonID("usbtest");
        setNormalImage(plain(place.size(), normalColor));
        connect(this, &KvIconButton::btnReleased, this,
                [this](const QString &id) { heard << "released " + id; });
        connect(this, &KvIconButton::btnClicked, this,
                [this](const QString &id) { heard << "clicked " + id; });
    }

    QStringList heard;
};

const QStringList fullTap{"released usbtest", "clicked usbtest"};

} // namespace

class TestKvIconButton : public QObject
{
    Q_OBJECT

private slots:
    void firstState();
    void modesHaveTheirNumbers();
    void imageInEveryShowMode_data();
    void imageInEveryShowMode();
    void textIsCentredOnTheImage();
    void faceUnderTheFinger_data();
    void faceUnderTheFinger();
    void faceFollowsTheFinger();
    void textColors();
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
    void disabledImage_data();
    void disabledImage();
    void disabledText_data();
    void disabledText();
    void settersAreSilent();
    void slotDeletesButton_data();
    void slotDeletesButton();
    void sizeHintIsNormalImage();
    void emptyRectangle_data();
    void emptyRectangle();
    void sizeThatWasGiven();
    void imageOfAnotherSize_data();
    void imageOfAnotherSize();
    void longText_data();
    void longText();
    void endlessText();
    void lineBreak();
    void blankAtALinesEndTakesNoRoom();
    void repaints_data();
    void repaints();
    void propertiesForForms();
    void styleSheetPaints();
};

void TestKvIconButton::firstState()
{
    const KvIconButton button;
    QCOMPARE(button.showMode(), KvIconButton::ShowImage);
    QCOMPARE(button.disableMode(), KvIconButton::DisableNone);
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

void TestKvIconButton::imageInEveryShowMode_data()
{
    addShowModes();
}

void TestKvIconButton::imageInEveryShowMode()
{
    QFETCH(int, mode);
    QFETCH(bool, textSeen);
    TouchScreen screen;
    Button button(&screen);
    button.setDisplayText("USB Test");
    if (mode >= 0) {
        button.setShowMode(KvIconButton::ShowMode(mode));
    }
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    QCOMPARE(!screen.inkIn(place, normalColor).isNull(), textSeen);
}

void TestKvIconButton::textIsCentredOnTheImage()
{
    TouchScreen screen;
    Button button(&screen);
    button.setShowMode(KvIconButton::ShowImageText);
    button.setTextSize(28);
    button.setDisplayText("HHHH");
    QVERIFY(screen.turnOn());
    const QRect ink = screen.inkIn(place, normalColor);
    QVERIFY(qAbs(ink.center().x() - onButton.x()) <= 2);
    QVERIFY(qAbs(ink.center().y() - onButton.y()) <= 3);
    // A capital of Liberation Sans is 1409 of 2048 units high, as Arial's nearly is: 19 of 28 px.
    QVERIFY2(qAbs(ink.height() - 19) <= 2, qPrintable(QString::number(ink.height())));
}

void TestKvIconButton::faceUnderTheFinger_data()
{
    QTest::addColumn<bool>("hasOver");
    QTest::addColumn<bool>("hasPress");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("over and pressed image") << true << true << overColor;
    QTest::newRow("over image") << true << false << overColor;
    QTest::newRow("pressed image") << false << true << pressColor;
    QTest::newRow("neither") << false << false << normalColor;
}

void TestKvIconButton::faceUnderTheFinger()
{
    QFETCH(bool, hasOver);
    QFETCH(bool, hasPress);
    QFETCH(QColor, expected);
    TouchScreen screen;
    Button button(&screen);
    if (hasOver) {
        button.setOverImage(plain(place.size(), overColor));
    }
    if (hasPress) {
        button.setPressImage(plain(place.size(), pressColor));
    }
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    screen.fingerDown(onButton);
    QCOMPARE(screen.colorAt(faceCorner), expected);
    screen.fingerUp(onButton);
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
}

void TestKvIconButton::faceFollowsTheFinger()
{
    TouchScreen screen;
    Button button(&screen);
    button.setPressImage(plain(place.size(), pressColor));
    QVERIFY(screen.turnOn());
    screen.fingerTo(onButton);
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    screen.fingerDown(place.topLeft());
    QCOMPARE(screen.colorAt(faceCorner), pressColor);
    QVERIFY(repaintsAfter(button, [&] { screen.fingerTo(place.topLeft() - QPoint(1, 0)); }));
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    QVERIFY(repaintsAfter(button, [&] { screen.fingerTo(place.bottomRight()); }));
    QCOMPARE(screen.colorAt(faceCorner), pressColor);
    screen.fingerTo(place.bottomRight() + QPoint(1, 1));
    QCOMPARE(screen.colorAt(faceCorner), normalColor);
    screen.fingerUp(besideButton);
}

void TestKvIconButton::textColors()
{
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(place.size(), Qt::black));
    button.setShowMode(KvIconButton::ShowImageText);
    button.setTextSize(40);
    // A full block, so that the text's own colour is seen at the middle of the button.
    button.setDisplayText(QString(QChar(0x2588)));
    button.setNormalTextColor(QColor(10, 200, 30));
    button.setPressTextColor(QColor(200, 10, 30));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(onButton), QColor(10, 200, 30));
    screen.fingerDown(onButton);
    QCOMPARE(screen.colorAt(onButton), QColor(200, 10, 30));
    screen.fingerUp(onButton);
    QCOMPARE(screen.colorAt(onButton), QColor(10, 200, 30));
}

void TestKvIconButton::liftInside()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    screen.fingerDown(onButton);
    QCOMPARE(button.heard, QStringList());
    screen.fingerUp(place.bottomRight());
    QCOMPARE(button.heard, fullTap);
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
    QCOMPARE(button.heard, fullTap);
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
    QCOMPARE(button.heard, fullTap);
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
    QCOMPARE(button.heard, fullTap);
}

void TestKvIconButton::secondQuickTap()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    // Presses and lifts twice; the second press comes as a double click.
    QTest::mouseDClick(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, onButton);
    QCOMPARE(button.heard, fullTap + fullTap);
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
    QCOMPARE(button.heard, fullTap);
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
    QCOMPARE(button.heard, fullTap);
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

void TestKvIconButton::disabledImage_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("hasImage");
    QTest::addColumn<bool>("imageShown");
    QTest::newRow("none, with image") << 0 << true << false;
    QTest::newRow("image, with image") << 1 << true << true;
    QTest::newRow("text, with image") << 2 << true << false;
    QTest::newRow("image and text, with image") << 3 << true << true;
    QTest::newRow("none, without image") << 0 << false << false;
    QTest::newRow("image, without image") << 1 << false << false;
    QTest::newRow("text, without image") << 2 << false << false;
    QTest::newRow("image and text, without image") << 3 << false << false;
}

void TestKvIconButton::disabledImage()
{
    QFETCH(int, mode);
    QFETCH(bool, hasImage);
    QFETCH(bool, imageShown);
    for (const bool byState : {true, false}) {
        TouchScreen screen;
        Button button(&screen);
        button.setDisableMode(KvIconButton::DisableMode(mode));
        if (hasImage) {
            button.setDisableImage(plain(place.size(), disableColor));
        }
        QVERIFY(screen.turnOn());
        QCOMPARE(screen.colorAt(faceCorner), normalColor);
        byState ? button.setDisableState(true) : button.setEnabled(false);
        const QColor seen = screen.colorAt(faceCorner);
        if (imageShown) {
            QCOMPARE(seen, disableColor);
        } else {
            QCOMPARE(seen.red(), 0);
            QVERIFY(isDimmedBlue(seen));
        }
    }
}

void TestKvIconButton::disabledText_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("none") << 0;
    QTest::newRow("image") << 1;
    QTest::newRow("text") << 2;
    QTest::newRow("image and text") << 3;
}

void TestKvIconButton::disabledText()
{
    QFETCH(int, mode);
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(place.size(), Qt::black));
    button.setDisableImage(plain(place.size(), Qt::black));
    button.setDisableMode(KvIconButton::DisableMode(mode));
    button.setShowMode(KvIconButton::ShowImageText);
    button.setTextSize(40);
    button.setDisplayText(QString(QChar(0x2588)));
    button.setNormalTextColor(QColor(240, 240, 240));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(onButton).red(), 240);
    button.setDisableState(true);
    // Grey 100 on black has a contrast of 3.5 : 1, which large text needs to be read.
    const int seen = screen.colorAt(onButton).red();
    QVERIFY2(seen >= 100 && seen <= 160, qPrintable(QString::number(seen)));
}

void TestKvIconButton::settersAreSilent()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    const QPixmap image = plain(place.size(), pressColor);
    button.setButtonID("other");
    button.setDisplayText("text");
    button.setTextSize(20);
    button.setShowMode(KvIconButton::ShowImageText);
    button.setNormalImage(image);
    button.setPressImage(image);
    button.setOverImage(image);
    button.setDisableImage(image);
    button.setDisableMode(KvIconButton::DisableImage);
    button.setNormalTextColor(Qt::red);
    button.setPressTextColor(Qt::red);
    button.setDisableState(true);
    button.setDisableState(false);
    QCoreApplication::processEvents();
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
    int clicks = 0;
    connect(button, &KvIconButton::btnClicked, &screen, [&] { ++clicks; });
    connect(button, onRelease ? &KvIconButton::btnReleased : &KvIconButton::btnClicked, &screen,
            [&] { delete page; });
    QVERIFY(screen.turnOn());
    screen.tap(onButton);
    QVERIFY(page.isNull());
    QCOMPARE(clicks, onRelease ? 0 : 1);
}

void TestKvIconButton::sizeHintIsNormalImage()
{
    KvIconButton button;
    button.setNormalImage(plain(QSize(210, 60), normalColor));
    button.setPressImage(plain(QSize(10, 10), pressColor));
    QCOMPARE(button.sizeHint(), QSize(210, 60));
}

void TestKvIconButton::emptyRectangle_data()
{
    QTest::addColumn<bool>("imageFirst");
    QTest::addColumn<QRect>("rectangle");
    // Right and bottom stay at the first menu button's corner, as the menu has it.
    const QPoint corner(274, 149);
    for (const bool imageFirst : {false, true}) {
        const char *order = imageFirst ? "image first" : "image last";
        QTest::addRow("%s, width below 0", order) << imageFirst << QRect(QPoint(295, 90), corner);
        QTest::addRow("%s, height below 0", order) << imageFirst << QRect(QPoint(65, 170), corner);
        QTest::addRow("%s, both below 0", order) << imageFirst << QRect(QPoint(525, 330), corner);
        QTest::addRow("%s, width 0", order) << imageFirst << QRect(275, 90, 0, 60);
        QTest::addRow("%s, height 0", order) << imageFirst << QRect(275, 90, 210, 0);
    }
}

void TestKvIconButton::emptyRectangle()
{
    QFETCH(bool, imageFirst);
    QFETCH(QRect, rectangle);
    TouchScreen screen;
    KvIconButton button(&screen);
    const QPixmap image = plain(QSize(210, 60), normalColor);
    if (imageFirst) {
        button.setNormalImage(image);
    }
    button.setGeometry(rectangle);
    if (!imageFirst) {
        button.setNormalImage(image);
        QCOMPARE(button.geometry(), QRect(rectangle.topLeft(), QSize(210, 60)));
    }
    QVERIFY(screen.turnOn());
    const QRect expected(rectangle.topLeft(), QSize(210, 60));
    QCOMPARE(button.geometry(), expected);
    QCOMPARE(screen.inkIn(screen.rect(), Qt::black), expected);

    button.setGeometry(QRect(rectangle.topLeft(), QSize(0, 0)));
    QCOMPARE(button.geometry(), expected);
}

void TestKvIconButton::sizeThatWasGiven()
{
    TouchScreen screen;
    KvIconButton button(&screen);
    button.setGeometry(10, 20, 40, 40);
    button.setNormalImage(plain(QSize(56, 56), normalColor));
    QVERIFY(screen.turnOn());
    QCOMPARE(button.geometry(), QRect(10, 20, 40, 40));
}

void TestKvIconButton::imageOfAnotherSize_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QRect>("drawn");
    QTest::newRow("smaller: centred") << QSize(56, 56) << QRect(177, 102, 56, 56);
    // 420 x 60 has to be halved to fit the width.
    QTest::newRow("wider: scaled down") << QSize(420, 60) << QRect(100, 115, 210, 30);
    // 210 x 120 has to be halved to fit the height.
    QTest::newRow("higher: scaled down") << QSize(210, 120) << QRect(152, 100, 105, 60);
}

void TestKvIconButton::imageOfAnotherSize()
{
    QFETCH(QSize, image);
    QFETCH(QRect, drawn);
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(image, normalColor));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.inkIn(screen.rect(), Qt::black), drawn);
}

void TestKvIconButton::longText_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("text");
    QTest::newRow("a little too long") << QSize(140, 60) << "DAB FW Update";
    QTest::newRow("two lines, one too long")
        << QSize(140, 60) << "DAB FW Updata \nQM_DAB_V1.02.0034";
    QTest::newRow("four lines, too high") << QSize(210, 60) << "one\ntwo\nthree\nfour";
    QTest::newRow("font higher than the button") << QSize(210, 20) << "Read";
}

void TestKvIconButton::longText()
{
    QFETCH(QSize, size);
    QFETCH(QString, text);
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(size, normalColor));
    button.setGeometry(QRect(place.topLeft(), size));
    button.setShowMode(KvIconButton::ShowImageText);
    button.setTextSize(28);
    button.setDisplayText(text);
    QVERIFY(screen.turnOn());
    const QRect ink = screen.inkIn(button.geometry(), normalColor);
    const QRect inside = button.geometry().adjusted(2, 1, -2, -1);
    QVERIFY2(inside.contains(ink), "the text touches the button's edge");

    // Nothing is left out: the ink is as wide as the whole text is in some font from 10 to 27 px.
    bool whole = false;
    for (int pixels = 10; pixels < 28; ++pixels) {
        QFont font = screen.font();
        font.setPixelSize(pixels);
        const QSize needed = QFontMetrics(font).size(0, text);
        whole = whole || qAbs(needed.width() - ink.width()) <= pixels / 3 + 1;
    }
    QVERIFY2(whole, qPrintable(QString("ink is %1 px wide").arg(ink.width())));
}

void TestKvIconButton::endlessText()
{
    TouchScreen screen;
    Button button(&screen);
    button.setShowMode(KvIconButton::ShowImageText);
    button.setDisplayText(QString("W").repeated(200));
    QVERIFY(screen.turnOn());
    const QRect ink = screen.inkIn(place, normalColor);
    QVERIFY(place.adjusted(4, 0, -4, 0).contains(ink));
    // The smallest font has 10 px, of which a capital takes 7.
    QVERIFY(ink.height() >= 6);
    // It ends in an ellipsis: at its right end only the dots' few rows have ink.
    const QRect end(ink.right() - 4, place.top(), 5, place.height());
    QVERIFY(screen.inkIn(end, normalColor).height() <= 2);
}

void TestKvIconButton::lineBreak()
{
    TouchScreen screen;
    Button button(&screen);
    button.setShowMode(KvIconButton::ShowImageText);
    button.setTextSize(20);
    button.setDisplayText("HH\nHH");
    QVERIFY(screen.turnOn());
    const QRect ink = screen.inkIn(place, normalColor);
    // Line pitch of Liberation Sans is 1.149 of the size: 23 px, and 14 px for the second capital.
    QVERIFY2(qAbs(ink.height() - 37) <= 2, qPrintable(QString::number(ink.height())));
    const QRect between(place.left(), ink.center().y() - 2, place.width(), 4);
    QVERIFY(screen.inkIn(between, normalColor).isNull());
}

void TestKvIconButton::blankAtALinesEndTakesNoRoom()
{
    KvIconButton button;
    button.resize(140, 60);
    button.setShowMode(KvIconButton::ShowImageText);
    button.setDisplayText("DAB FW Updata\nSDK 3.2.1");
    const QImage without = button.grab().toImage();
    button.setDisplayText("DAB FW Updata \nSDK 3.2.1");
    QCOMPARE(button.grab().toImage(), without);
}

void TestKvIconButton::repaints_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    const QVariant image = plain(place.size(), pressColor);
    QTest::newRow("displayText") << QByteArray("displayText") << QVariant("new");
    QTest::newRow("textSize") << QByteArray("textSize") << QVariant(12);
    QTest::newRow("showMode") << QByteArray("showMode") << QVariant(1);
    QTest::newRow("disableMode") << QByteArray("disableMode") << QVariant(3);
    QTest::newRow("disableState") << QByteArray("disableState") << QVariant(true);
    QTest::newRow("normalTextColor") << QByteArray("normalTextColor") << QVariant(QColor(Qt::red));
    QTest::newRow("pressTextColor") << QByteArray("pressTextColor") << QVariant(QColor(Qt::red));
    QTest::newRow("normalImage") << QByteArray("normalImage") << image;
    QTest::newRow("pressImage") << QByteArray("pressImage") << image;
    QTest::newRow("overImage") << QByteArray("overImage") << image;
    QTest::newRow("disableImage") << QByteArray("disableImage") << image;
}

void TestKvIconButton::repaints()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(!repaintsAfter(button, [] {}));
    QVERIFY(repaintsAfter(button, [&] { button.setProperty(property, value); }));
}

void TestKvIconButton::propertiesForForms()
{
    KvIconButton button;
    const auto set = [&button](const char *name, const QVariant &value) {
        // False also where the class does not declare the property.
        return button.setProperty(name, value);
    };
    QVERIFY(set("buttonID", "idCpBtn"));
    QCOMPARE(button.buttonID(), QString("idCpBtn"));
    QVERIFY(set("displayText", "SYSTEMLOG"));
    QCOMPARE(button.displayText(), QString("SYSTEMLOG"));
    QVERIFY(set("textSize", 32));
    QCOMPARE(button.textSize(), 32);
    QVERIFY(set("showMode", QVariant::fromValue(KvIconButton::ShowImageText)));
    QCOMPARE(button.showMode(), KvIconButton::ShowImageText);
    QVERIFY(set("disableMode", QVariant::fromValue(KvIconButton::DisableText)));
    QCOMPARE(button.disableMode(), KvIconButton::DisableText);
    QVERIFY(set("disableState", true));
    QCOMPARE(button.disableState(), true);
    QVERIFY(set("normalTextColor", QColor(1, 2, 3)));
    QCOMPARE(button.normalTextColor(), QColor(1, 2, 3));
    QVERIFY(set("pressTextColor", QColor(4, 5, 6)));
    QCOMPARE(button.pressTextColor(), QColor(4, 5, 6));
    QVERIFY(set("normalImage", plain(QSize(1, 2), Qt::red)));
    QCOMPARE(button.normalImage().size(), QSize(1, 2));
    QVERIFY(set("pressImage", plain(QSize(3, 4), Qt::red)));
    QCOMPARE(button.pressImage().size(), QSize(3, 4));
    QVERIFY(set("overImage", plain(QSize(5, 6), Qt::red)));
    QCOMPARE(button.overImage().size(), QSize(5, 6));
    QVERIFY(set("disableImage", plain(QSize(7, 8), Qt::red)));
    QCOMPARE(button.disableImage().size(), QSize(7, 8));
}

void TestKvIconButton::styleSheetPaints()
{
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(QSize(10, 10), normalColor));
    RUN_CHECK(checkStyleSheetPaints(screen, button, faceCorner));
    QCOMPARE(screen.colorAt(onButton), normalColor);
}

FACTORY_TEST_MAIN(TestKvIconButton)
#include "tst_kviconbutton.moc"
