#include "kvwidget/kviconbutton.h"

#include "buttonchecks.h"
#include "testiconbutton.h"

#include "support/runcheck.h"
#include "support/testmain.h"

#include <QtTest>

class TestKvIconButtonFace : public QObject
{
    Q_OBJECT

private slots:
    void imageInEveryShowMode_data();
    void imageInEveryShowMode();
    void faceUnderTheFinger_data();
    void faceUnderTheFinger();
    void faceFollowsTheFinger();
    void disabledImage_data();
    void disabledImage();
    void sizeHintIsNormalImage();
    void emptyRectangle_data();
    void emptyRectangle();
    void sizeThatWasGiven();
    void imageOfAnotherSize_data();
    void imageOfAnotherSize();
    void propertiesForForms_data();
    void propertiesForForms();
    void styleSheetPaints();
};

namespace
{

constexpr QColor disableColor(255, 255, 0);

} // namespace

void TestKvIconButtonFace::imageInEveryShowMode_data()
{
    QTest::addColumn<int>("mode"); // -1 is for a button whose mode is not set
    QTest::addColumn<bool>("textSeen");
    QTest::newRow("none set") << -1 << false;
    QTest::newRow("image") << int(KvIconButton::ShowImage) << false;
    QTest::newRow("image and text") << int(KvIconButton::ShowImageText) << true;
}

void TestKvIconButtonFace::imageInEveryShowMode()
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

void TestKvIconButtonFace::faceUnderTheFinger_data()
{
    QTest::addColumn<bool>("hasOver");
    QTest::addColumn<bool>("hasPress");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("over and pressed image") << true << true << overColor;
    QTest::newRow("over image") << true << false << overColor;
    QTest::newRow("pressed image") << false << true << pressColor;
    QTest::newRow("neither") << false << false << normalColor;
}

void TestKvIconButtonFace::faceUnderTheFinger()
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

void TestKvIconButtonFace::faceFollowsTheFinger()
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

void TestKvIconButtonFace::disabledImage_data()
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

void TestKvIconButtonFace::disabledImage()
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

void TestKvIconButtonFace::sizeHintIsNormalImage()
{
    KvIconButton button;
    button.setNormalImage(plain(QSize(210, 60), normalColor));
    button.setPressImage(plain(QSize(10, 10), pressColor));
    QCOMPARE(button.sizeHint(), QSize(210, 60));
}

void TestKvIconButtonFace::emptyRectangle_data()
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

void TestKvIconButtonFace::emptyRectangle()
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

void TestKvIconButtonFace::sizeThatWasGiven()
{
    TouchScreen screen;
    KvIconButton button(&screen);
    button.setGeometry(10, 20, 40, 40);
    button.setNormalImage(plain(QSize(56, 56), normalColor));
    QVERIFY(screen.turnOn());
    QCOMPARE(button.geometry(), QRect(10, 20, 40, 40));
}

void TestKvIconButtonFace::imageOfAnotherSize_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QRect>("drawn");
    QTest::newRow("smaller: centred") << QSize(56, 56) << QRect(177, 102, 56, 56);
    // 420 x 60 has to be halved to fit the width.
    QTest::newRow("wider: scaled down") << QSize(420, 60) << QRect(100, 115, 210, 30);
    // 210 x 120 has to be halved to fit the height.
    QTest::newRow("higher: scaled down") << QSize(210, 120) << QRect(152, 100, 105, 60);
}

void TestKvIconButtonFace::imageOfAnotherSize()
{
    QFETCH(QSize, image);
    QFETCH(QRect, drawn);
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(image, normalColor));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.inkIn(screen.rect(), Qt::black), drawn);
}

void TestKvIconButtonFace::propertiesForForms_data()
{
    addPropertyColumns();
    const QVariant image = plain(QSize(9, 9), pressColor);
    const QVariant color = QColor(1, 2, 3);
    QTest::newRow("buttonID") << QByteArray("buttonID") << QVariant("idCpBtn") << false;
    QTest::newRow("displayText") << QByteArray("displayText") << QVariant("SYSTEMLOG") << true;
    QTest::newRow("textSize") << QByteArray("textSize") << QVariant(12) << true;
    QTest::newRow("showMode") << QByteArray("showMode") << QVariant(1) << true;
    QTest::newRow("disableMode") << QByteArray("disableMode") << QVariant(3) << true;
    QTest::newRow("disableState") << QByteArray("disableState") << QVariant(true) << true;
    QTest::newRow("normalTextColor") << QByteArray("normalTextColor") << color << true;
    QTest::newRow("pressTextColor") << QByteArray("pressTextColor") << color << true;
    QTest::newRow("normalImage") << QByteArray("normalImage") << image << true;
    QTest::newRow("pressImage") << QByteArray("pressImage") << image << true;
    QTest::newRow("overImage") << QByteArray("overImage") << image << true;
    QTest::newRow("disableImage") << QByteArray("disableImage") << image << true;
}

void TestKvIconButtonFace::propertiesForForms()
{
    checkProperty<Button>();
}

void TestKvIconButtonFace::styleSheetPaints()
{
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(QSize(10, 10), normalColor));
    RUN_CHECK(checkStyleSheetPaints(screen, button, faceCorner));
    QCOMPARE(screen.colorAt(onButton), normalColor);
}

FACTORY_TEST_MAIN(TestKvIconButtonFace)
#include "tst_kviconbutton_face.moc"
