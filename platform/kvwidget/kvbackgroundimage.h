#pragma once

#include "kvwidget.h"

#include <QPixmap>

/// An image behind other widgets, or over what shall not be touched: it keeps touches for itself.
class KV_API KvBackgroundImage : public KvWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(KvBackgroundImage)
    Q_PROPERTY(QPixmap pixmap MEMBER m_pixmap WRITE setPixmap)
    Q_PROPERTY(bool fitPixmapSize MEMBER m_fitPixmapSize WRITE setFitPixmapSize)

public:
    explicit KvBackgroundImage(QWidget *parent = nullptr);

    /// Drawn over the whole widget, scaled where the sizes differ.
    void setPixmap(const QPixmap &pixmap);

    /// With true the widget takes the pixmap's size and keeps it. Off at first.
    void setFitPixmapSize(bool fit);

    /// The pixmap's size in pixels.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void applyFit();

    QPixmap m_pixmap;
    QPixmap m_scaled;
    bool m_fitPixmapSize = false;
};
