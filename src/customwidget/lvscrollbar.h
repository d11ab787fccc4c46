#pragma once

#include <QPoint>
#include <QScrollBar>

/// The wide scroll bar that floats over a ListView. Besides the usual handle drag, a finger that
/// moves anywhere on it drags the content the way the list does: up raises the value.
class LvScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit LvScrollBar(QWidget *parent);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    /// Only traces the change: the list's own repaint draws the bar anew.
    void sliderChange(SliderChange change) override;

private:
    Q_DISABLE_COPY(LvScrollBar)

    void dragTo(int y);

    QPoint m_pressPoint;
    QPoint m_lastPoint;
    bool m_dragging;
    bool m_pressed;
};
