#include "lvscrollbar.h"

#include "common/trace.h"

#include <QMouseEvent>

namespace
{

constexpr int dragDistance = 6;

} // namespace

LvScrollBar::LvScrollBar(QWidget *parent)
    : QScrollBar(parent)
    , m_dragging(false)
    , m_pressed(false)
{
}

void LvScrollBar::mousePressEvent(QMouseEvent *event)
{
    QScrollBar::mousePressEvent(event);
    m_pressPoint = event->pos();
    m_pressed = true;
}

void LvScrollBar::mouseMoveEvent(QMouseEvent *event)
{
    QScrollBar::mouseMoveEvent(event);
    if (m_pressed && qAbs(event->pos().y() - m_pressPoint.y()) >= dragDistance) {
        m_dragging = true;
    }
    if (m_dragging) {
        dragTo(event->pos().y());
    }
    m_lastPoint = event->pos();
}

void LvScrollBar::dragTo(int y)
{
    // 64 bits, since a long list times a long way is more than an int holds.
    const qint64 way = qint64(m_lastPoint.y() - y) * (qint64(maximum()) - minimum());
    const qint64 wanted = value() + way / qMax(1, height());
    setValue(int(qBound<qint64>(minimum(), wanted, maximum())));
}

void LvScrollBar::mouseReleaseEvent(QMouseEvent *event)
{
    QScrollBar::mouseReleaseEvent(event);
    m_dragging = false;
    m_pressed = false;
}

void LvScrollBar::sliderChange(SliderChange change)
{
    FACTORY_TRACE << "sliderChange change:" << int(change);
}
