#include "kvwidget/kvbackgroundimage.h"

#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"
#include "touchscreen.h"

#include <QPainter>
#include <QtTest>

namespace
{

constexpr QColor leftColor(255, 0, 0);
constexpr QColor rightColor(0, 0, 255);

/// Left half and right half of different colours.
QPixmap halves(const QSize &size)
{
    QPixmap pixmap = plain(size, leftColor);
    QPainter(&pixmap).fillRect(size.width() / 2, 0, size.width() / 2, size.height(), rightColor);
    return pixmap;
}

} // namespace

class TestKvBackgroundImage : public QObject
{
    Q_OBJECT

private slots:
    void coversTheWholeWidget_data();
    void coversTheWholeWidget();
    void followsItsSize();
    void fitTakesThePixmapsSize_data();
    void fitTakesThePixmapsSize();
    void fitKeepsThePixmapsSize();
    void nothingWithoutPixmap();
    void styleSheetPaintsBeneath();
    void keepsTouchesForItself();
    void propertiesForForms();
    void repaints();
};

void TestKvBackgroundImage::coversTheWholeWidget_data()
{
    QTest::addColumn<QSize>("pixmap");
    QTest::newRow("own size") << QSize(400, 100);
    QTest::newRow("stretched in both directions") << QSize(40, 40);
    QTest::newRow("shrunk") << QSize(1600, 600);
}

void TestKvBackgroundImage::coversTheWholeWidget()
{
    QFETCH(QSize, pixmap);
    TouchScreen screen;
    KvBackgroundImage image(&screen);
    image.setGeometry(100, 50, 400, 100);
    image.setPixmap(halves(pixmap));
    QVERIFY(screen.turnOn());
    QCOMPARE(image.geometry(), QRect(100, 50, 400, 100));
    QCOMPARE(screen.inkIn(screen.rect(), Qt::black), image.geometry());
    // A colour that is stretched smoothly runs into the other within one stretched pixel.
    QCOMPARE(screen.colorAt(QPoint(100, 50)), leftColor);
    QCOMPARE(screen.colorAt(QPoint(289, 149)), leftColor);
    QCOMPARE(screen.colorAt(QPoint(310, 50)), rightColor);
    QCOMPARE(screen.colorAt(QPoint(499, 149)), rightColor);
}

void TestKvBackgroundImage::followsItsSize()
{
    TouchScreen screen;
    KvBackgroundImage image(&screen);
    image.setGeometry(0, 0, 100, 100);
    image.setPixmap(halves(QSize(20, 20)));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.inkIn(screen.rect(), Qt::black), QRect(0, 0, 100, 100));
    image.resize(300, 200);
    QCOMPARE(screen.inkIn(screen.rect(), Qt::black), QRect(0, 0, 300, 200));
    image.setPixmap(plain(QSize(300, 200), rightColor));
    QCOMPARE(screen.colorAt(QPoint(0, 0)), rightColor);
}

void TestKvBackgroundImage::fitTakesThePixmapsSize_data()
{
    QTest::addColumn<bool>("pixmapFirst");
    QTest::newRow("pixmap first") << true;
    QTest::newRow("fit first") << false;
}

void TestKvBackgroundImage::fitTakesThePixmapsSize()
{
    QFETCH(bool, pixmapFirst);
    TouchScreen screen;
    KvBackgroundImage image(&screen);
    image.setGeometry(62, 166, 10, 10);
    if (pixmapFirst) {
        image.setPixmap(plain(QSize(676, 164), leftColor));
    }
    image.setFitPixmapSize(true);
    if (!pixmapFirst) {
        image.setPixmap(plain(QSize(676, 164), leftColor));
    }
    QCOMPARE(image.geometry(), QRect(62, 166, 676, 164));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.inkIn(screen.rect(), Qt::black), QRect(62, 166, 676, 164));
}

void TestKvBackgroundImage::fitKeepsThePixmapsSize()
{
    TouchScreen screen;
    KvBackgroundImage image(&screen);
    image.setPixmap(plain(QSize(676, 164), leftColor));
    image.setFitPixmapSize(true);
    image.setGeometry(10, 20, 30, 40);
    QVERIFY(screen.turnOn());
    QCOMPARE(image.geometry(), QRect(10, 20, 676, 164));
    image.setGeometry(5, 6, 300, 400);
    QCOMPARE(image.geometry(), QRect(5, 6, 676, 164));
    image.setFitPixmapSize(false);
    image.setGeometry(5, 6, 300, 400);
    QCOMPARE(image.geometry(), QRect(5, 6, 300, 400));
}

void TestKvBackgroundImage::nothingWithoutPixmap()
{
    TouchScreen screen;
    KvBackgroundImage image(&screen);
    image.setGeometry(10, 20, 30, 40);
    image.setFitPixmapSize(true);
    QVERIFY(screen.turnOn());
    QCOMPARE(image.geometry(), QRect(10, 20, 30, 40));
    QVERIFY(screen.inkIn(screen.rect(), Qt::black).isNull());
}

void TestKvBackgroundImage::styleSheetPaintsBeneath()
{
    TouchScreen screen;
    KvBackgroundImage image(&screen);
    image.setObjectName("popLoading");
    image.setGeometry(0, 0, 100, 100);
    QPixmap pixmap = plain(QSize(100, 100), Qt::transparent);
    QPainter(&pixmap).fillRect(50, 0, 50, 100, rightColor);
    image.setPixmap(pixmap);
    image.setStyleSheet("#popLoading{\nbackground-color: rgb(10, 20, 30);\n}");
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(QPoint(25, 50)), QColor(10, 20, 30));
    QCOMPARE(screen.colorAt(QPoint(75, 50)), rightColor);
}

void TestKvBackgroundImage::keepsTouchesForItself()
{
    TouchScreen screen;
    KvIconButton below(&screen);
    below.setGeometry(0, 0, 200, 200);
    int clicks = 0;
    connect(&below, &KvIconButton::btnClicked, this, [&] { ++clicks; });
    KvBackgroundImage image(&screen);
    image.setGeometry(0, 0, 100, 200);
    QVERIFY(screen.turnOn());
    screen.tap(QPoint(50, 50));
    QCOMPARE(clicks, 0);
    QCOMPARE(screen.touches(), 0);
    screen.tap(QPoint(150, 50));
    QCOMPARE(clicks, 1);
}

void TestKvBackgroundImage::propertiesForForms()
{
    KvBackgroundImage image;
    QVERIFY(image.setProperty("pixmap", plain(QSize(30, 20), leftColor)));
    QCOMPARE(image.property("pixmap").value<QPixmap>().size(), QSize(30, 20));
    QCOMPARE(image.sizeHint(), QSize(30, 20));
    QCOMPARE(image.property("fitPixmapSize").value<bool>(), false);
    QVERIFY(image.setProperty("fitPixmapSize", true));
    QCOMPARE(image.property("fitPixmapSize").value<bool>(), true);
    QCOMPARE(image.size(), QSize(30, 20));
}

void TestKvBackgroundImage::repaints()
{
    TouchScreen screen;
    KvBackgroundImage image(&screen);
    image.setGeometry(0, 0, 100, 100);
    QVERIFY(screen.turnOn());
    QVERIFY(repaintsAfter(image, [&] { image.setPixmap(plain(QSize(9, 9), leftColor)); }));
    QVERIFY(repaintsAfter(image, [&] { image.setPixmap(QPixmap()); }));
}

FACTORY_TEST_MAIN(TestKvBackgroundImage)
#include "tst_kvbackgroundimage.moc"
