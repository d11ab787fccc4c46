#include "lvscrollbar.h"

#include "factorydebug/trace.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

namespace
{

const int dragDistance = 6;

QPixmap transparent(const QSize &size)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

} // namespace

LvScrollBar::LvScrollBar(QWidget *parent)
    : QScrollBar(parent)
    , m_dragging(false)
    , m_pressed(false)
{
}

void LvScrollBar::paintEvent(QPaintEvent *event)
{
    if (m_pressed) {
        // Only the base knows what the finger is on.
        QScrollBar::paintEvent(event);
        return;
    }
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect handle =
        style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
    if (m_bar.size() != size()) {
        m_bar = drawnBar(option);
    }
    if (m_handle.size() != handle.size()) {
        m_handle = drawnHandle(option, handle.size());
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_bar);
    painter.drawPixmap(handle.topLeft(), m_handle);
}

/// Without its handle, and without what is above and below that: it has no colour.
QPixmap LvScrollBar::drawnBar(QStyleOptionSlider option) const
{
    QPixmap pixmap = transparent(size());
    QPainter painter(&pixmap);
    option.subControls = QStyle::SC_ScrollBarAddLine | QStyle::SC_ScrollBarSubLine;
    style()->drawComplexControl(QStyle::CC_ScrollBar, &option, &painter, this);
    return pixmap;
}

QPixmap LvScrollBar::drawnHandle(QStyleOptionSlider option, const QSize &size) const
{
    QPixmap pixmap = transparent(size);
    if (pixmap.isNull()) { // A long list's handle has no height.
        return pixmap;
    }
    QPainter painter(&pixmap);
    option.rect = QRect(QPoint(), size);
    style()->drawControl(QStyle::CE_ScrollBarSlider, &option, &painter, this);
    return pixmap;
}

void LvScrollBar::changeEvent(QEvent *event)
{
    m_bar = QPixmap();
    m_handle = QPixmap();
    QScrollBar::changeEvent(event);
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
