#include "hostwindow.h"

#include "bezel.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWheelEvent>

#include <cmath>

namespace simulator
{

HostWindow::HostWindow(Bezel &bezel)
    : m_bezel(bezel)
{
    bezel.setAttribute(Qt::WA_DontShowOnScreen);
    bezel.setAttribute(Qt::WA_QuitOnClose, false);
    setTitle(bezel.windowTitle());
    setMinimumSize(bezel.size() * smallestScale);
    connect(&bezel, &Bezel::painted, this, &HostWindow::paintNow);
    connect(qApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow *window) {
        if (window == this) {
            QApplication::setActiveWindow(&m_bezel);
        }
    });
}

void HostWindow::open(double scale)
{
    // A window with this attribute takes no touches.
    m_bezel.setAttribute(Qt::WA_DontShowOnScreen, false);
    const QSize wanted = m_bezel.size() * scale;
    const QSize room = screen()->availableSize();
    const bool fits = wanted == wanted.boundedTo(room);
    resize(fits ? wanted : wanted.scaled(room, Qt::KeepAspectRatio));
    show();
}

QRect HostWindow::pictureRect() const
{
    const QSize picture =
        m_bezel.size().scaled(size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return QRect(QPoint((width() - picture.width()) / 2, (height() - picture.height()) / 2),
                 picture);
}

bool HostWindow::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        handOn(static_cast<const QMouseEvent &>(*event));
        return true;
    case QEvent::Wheel:
        handOn(static_cast<const QWheelEvent &>(*event));
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Leave:
        return QCoreApplication::sendEvent(m_bezel.windowHandle(), event);
    default:
        break;
    }
    return QRasterWindow::event(event);
}

void HostWindow::resizeEvent(QResizeEvent *)
{
    update();
}

void HostWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(QRect(QPoint(0, 0), size()), Qt::black);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(pictureRect(), m_bezel.lastFrame());
}

/// At once, since a page that is about to block the thread has painted what is to be seen
/// meanwhile.
void HostWindow::paintNow()
{
    if (isExposed()) {
        update();
        QEvent request(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(this, &request);
    }
}

void HostWindow::handOn(const QMouseEvent &event)
{
    QWindow *window = m_bezel.windowHandle();
    const QPoint place = onBezel(event.pos());
    QMouseEvent same(event.type(), place, place, window->mapToGlobal(place), event.button(),
                     event.buttons(), event.modifiers(), event.source());
    same.setTimestamp(event.timestamp());
    QCoreApplication::sendEvent(window, &same);
}

void HostWindow::handOn(const QWheelEvent &event)
{
    QWindow *window = m_bezel.windowHandle();
    const QPoint place = onBezel(event.position().toPoint());
    QWheelEvent same(place, window->mapToGlobal(place), event.pixelDelta(), event.angleDelta(),
                     event.buttons(), event.modifiers(), event.phase(), event.inverted(),
                     event.source());
    QCoreApplication::sendEvent(window, &same);
}

/// The pixel of the bezel that is shown in the middle of one of this window's.
QPoint HostWindow::onBezel(const QPoint &position) const
{
    const QRect picture = pictureRect();
    const QPointF middle = position - picture.topLeft() + QPointF(0.5, 0.5);
    return QPoint(int(std::floor(middle.x() * m_bezel.width() / picture.width())),
                  int(std::floor(middle.y() * m_bezel.height() / picture.height())));
}

} // namespace simulator
