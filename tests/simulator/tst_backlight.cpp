#include "simulator/window/backlight.h"

#include "support/testmain.h"

#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

using simulator::Backlight;

class TestBacklight : public QObject
{
    Q_OBJECT

private slots:
    void brightness_data();
    void brightness();
    void letsTouchesThrough();
};

namespace
{

/// A window of one colour with the light over it.
struct LitWindow
{
    explicit LitWindow(const QColor &color)
        : backlight(&window)
    {
        QPalette palette;
        palette.setColor(QPalette::Window, color);
        window.setPalette(palette);
        window.setAutoFillBackground(true);
        window.resize(100, 50);
        backlight.setGeometry(window.rect());
        window.show();
    }

    QColor color() { return window.grab().toImage().pixelColor(50, 25); }

    QWidget window;
    Backlight backlight;
};

} // namespace

void TestBacklight::brightness_data()
{
    QTest::addColumn<int>("brightness");
    QTest::addColumn<double>("factor"); // From a fifth at 0 by way of 1 at 12 to 1.3 at 24.
    QTest::newRow("darkest") << 0 << 0.2;
    QTest::newRow("half way to the dark") << 6 << 0.6;
    QTest::newRow("a step darker") << 11 << 0.9333;
    QTest::newRow("as drawn") << 12 << 1.0;
    QTest::newRow("half way to the light") << 18 << 1.15;
    QTest::newRow("lightest") << 24 << 1.3;
    QTest::newRow("below the range") << -7 << 0.2;
    QTest::newRow("above the range") << 1000 << 1.3;
}

void TestBacklight::brightness()
{
    QFETCH(int, brightness);
    QFETCH(double, factor);
    LitWindow lit(QColor(100, 60, 20));
    lit.backlight.setBrightness(brightness);
    const QColor color = lit.color();
    QVERIFY2(qAbs(color.red() - 100 * factor) <= 2, qPrintable(color.name()));
    QVERIFY2(qAbs(color.green() - 60 * factor) <= 2, qPrintable(color.name()));
    QVERIFY2(qAbs(color.blue() - 20 * factor) <= 2, qPrintable(color.name()));
    // Black stays black, and nothing is painted where nothing changes.
    LitWindow dark(Qt::black);
    dark.backlight.setBrightness(brightness);
    QCOMPARE(dark.color(), QColor(Qt::black));
    QCOMPARE(dark.backlight.isVisible(), factor != 1.0);
}

void TestBacklight::letsTouchesThrough()
{
    LitWindow lit(Qt::gray);
    QPushButton button(&lit.window);
    button.setGeometry(10, 10, 40, 20);
    button.show();
    lit.backlight.raise();
    lit.backlight.setBrightness(0);
    QVERIFY(QTest::qWaitForWindowExposed(&lit.window));
    QSignalSpy clicked(&button, &QPushButton::clicked);
    QTest::mouseClick(lit.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QCOMPARE(clicked.count(), 1);
}

FACTORY_TEST_MAIN(TestBacklight)
#include "tst_backlight.moc"
