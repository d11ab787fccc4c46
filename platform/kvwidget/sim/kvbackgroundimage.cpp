#include "kvwidget/kvbackgroundimage.h"

#include <QPainter>

KvBackgroundImage::KvBackgroundImage(QWidget *parent)
    : KvWidget(parent)
{
    setAttribute(Qt::WA_NoMousePropagation);
}

void KvBackgroundImage::setPixmap(const QPixmap &pixmap)
{
    m_pixmap = pixmap;
    m_scaled = QPixmap();
    applyFit();
    updateGeometry();
    update();
}

void KvBackgroundImage::setFitPixmapSize(bool fit)
{
    m_fitPixmapSize = fit;
    applyFit();
}

QSize KvBackgroundImage::sizeHint() const
{
    return m_pixmap.isNull() ? KvWidget::sizeHint() : m_pixmap.size();
}

void KvBackgroundImage::paintEvent(QPaintEvent *event)
{
    KvWidget::paintEvent(event);
    if (m_pixmap.isNull()) {
        return;
    }
    // Scaled once for each size: what moves above or below the image repaints it often.
    if (m_scaled.size() != size()) {
        m_scaled = m_pixmap.scaled(size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_scaled);
}

void KvBackgroundImage::resizeEvent(QResizeEvent *event)
{
    KvWidget::resizeEvent(event);
    applyFit();
}

void KvBackgroundImage::applyFit()
{
    if (m_fitPixmapSize && !m_pixmap.isNull()) {
        resize(m_pixmap.size());
    }
}
