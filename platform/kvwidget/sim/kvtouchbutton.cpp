#include "kvwidget/kvtouchbutton.h"

#include <QEvent>
#include <QMouseEvent>

KvTouchButton::KvTouchButton(QWidget *parent)
    : KvWidget(parent)
{
    // A touch that the button refuses is not meant for the page below it either.
    setAttribute(Qt::WA_NoMousePropagation);
}

QSize KvTouchButton::sizeHint() const
{
    const QSize size = faceSize();
    return size.isEmpty() ? KvWidget::sizeHint() : size;
}

bool KvTouchButton::takesTouches() const
{
    return isEnabled();
}

QRect KvTouchButton::touchArea() const
{
    return rect();
}

bool KvTouchButton::isUnderFinger() const
{
    return m_pressed && m_fingerInside;
}

void KvTouchButton::cancelPress()
{
    trackFinger(false, false);
}

void KvTouchButton::faceSizeChanged()
{
    fillEmptyRectangle();
    updateGeometry();
    update();
}

void KvTouchButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && takesTouches() && touchArea().contains(event->pos())) {
        trackFinger(true, true);
    }
}

void KvTouchButton::mouseMoveEvent(QMouseEvent *event)
{
    trackFinger(m_pressed, touchArea().contains(event->pos()));
}

void KvTouchButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_pressed) {
        return;
    }
    trackFinger(false, false);
    if (touchArea().contains(event->pos())) {
        fingerLifted();
    }
}

void KvTouchButton::resizeEvent(QResizeEvent *event)
{
    KvWidget::resizeEvent(event);
    fillEmptyRectangle();
}

void KvTouchButton::hideEvent(QHideEvent *event)
{
    KvWidget::hideEvent(event);
    cancelPress();
}

void KvTouchButton::changeEvent(QEvent *event)
{
    KvWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        cancelPress();
    }
}

void KvTouchButton::trackFinger(bool pressed, bool inside)
{
    const bool wasUnderFinger = isUnderFinger();
    m_pressed = pressed;
    m_fingerInside = inside;
    if (isUnderFinger() != wasUnderFinger) {
        update();
    }
}

void KvTouchButton::fillEmptyRectangle()
{
    if (size().isEmpty() && !faceSize().isEmpty()) {
        resize(faceSize());
    }
}
