#pragma once

#include <QPixmap>
#include <QPoint>
#include <QScrollBar>

class QStyleOptionSlider;

/// The wide scroll bar that floats over a ListView. Besides the usual handle drag, a finger that
/// moves anywhere on it drags the content the way the list does: up raises the value.
class LvScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit LvScrollBar(QWidget *parent);

protected:
    /// Lays down pictures of the bar and its handle, as the style has drawn them once: with every
    /// step of a dragged list the bar over it is painted anew.
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    /// Only traces the change: the list's own repaint draws the bar anew.
    void sliderChange(SliderChange change) override;

private:
    Q_DISABLE_COPY(LvScrollBar)

    void dragTo(int y);
    QPixmap drawnBar(QStyleOptionSlider option) const;
    QPixmap drawnHandle(QStyleOptionSlider option, const QSize &size) const;

    QPoint m_pressPoint;
    QPoint m_lastPoint;
    bool m_dragging;
    bool m_pressed;
    QPixmap m_bar;
    QPixmap m_handle;
};
