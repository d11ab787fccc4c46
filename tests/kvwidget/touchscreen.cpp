#include "touchscreen.h"

#include <QImage>
#include <QtTest>
#include <QWindow>

namespace
{

/// Tells whether the widget that it watches was painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget &widget) { widget.installEventFilter(this); }

    bool painted = false;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

TouchScreen::TouchScreen()
{
    setFont(QFont(QStringLiteral("Liberation Sans")));
    setPalette(QPalette(Qt::white, Qt::black));
    setAutoFillBackground(true);
    resize(800, 480);
}

bool TouchScreen::turnOn()
{
    show();
    return QTest::qWaitForWindowExposed(this);
}

void TouchScreen::fingerDown(const QPoint &at)
{
    QTest::mousePress(windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
}

void TouchScreen::fingerTo(const QPoint &at)
{
    QTest::mouseMove(windowHandle(), at);
}

void TouchScreen::fingerUp(const QPoint &at)
{
    QTest::mouseRelease(windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
}

void TouchScreen::tap(const QPoint &at)
{
    fingerDown(at);
    fingerUp(at);
}

QColor TouchScreen::colorAt(const QPoint &at)
{
    return grab().toImage().pixelColor(at);
}

QRect TouchScreen::inkIn(const QRect &area, const QColor &ground)
{
    const QImage seen = grab(area).toImage();
    QRect ink;
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            if (seen.pixelColor(x, y) != ground) {
                ink |= QRect(area.left() + x, area.top() + y, 1, 1);
            }
        }
    }
    return ink;
}

int TouchScreen::touches() const
{
    return m_touches;
}

void TouchScreen::mousePressEvent(QMouseEvent *)
{
    ++m_touches;
}

QPixmap plain(const QSize &size, const QColor &color)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return pixmap;
}

bool repaintsAfter(QWidget &widget, const std::function<void()> &change)
{
    QCoreApplication::processEvents();
    PaintWatch watch(widget);
    change();
    QCoreApplication::processEvents();
    return watch.painted;
}
