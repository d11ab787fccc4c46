#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

/// The unit's screen of 800 x 480 as a black window. A finger touches it at screen coordinates, and
/// Qt finds out which widget is touched, as it does on the unit.
class TouchScreen : public QWidget
{
public:
    TouchScreen();

    /// Shows the screen with what lies on it by now; false when it does not appear.
    bool turnOn();

    void fingerDown(const QPoint &at);
    void fingerTo(const QPoint &at);
    void fingerUp(const QPoint &at);
    void tap(const QPoint &at);

    /// The colour that is seen there.
    QColor colorAt(const QPoint &at);
    /// The smallest rectangle around all pixels inside \a area that are not of the colour \a
    /// ground.
    QRect inkIn(const QRect &area, const QColor &ground);

    /// How many touches went through to the screen itself.
    int touches() const;

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    int m_touches = 0;
};

/// An image of one colour.
QPixmap plain(const QSize &size, const QColor &color);

/// True when \a widget, which must be visible, paints itself anew after \a change.
bool repaintsAfter(QWidget &widget, const std::function<void()> &change);
