#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QStringList>

namespace simulator
{

/// A button of the screen: what the console calls it, and where it takes touches.
struct TouchedButton
{
    QString name; ///< Empty for none.
    QRect area;   ///< In pixels of the screen.
};

/// What a finger did from going down to being lifted, in pixels of the screen.
class Gesture
{
public:
    /// \a button is what lies there; a touch that stays on it works it, wherever it is touched.
    Gesture(const QPoint &place, const TouchedButton &button);

    void moveTo(const QPoint &place);
    QPoint place() const;

    /// The one console command that does the same, as its words: press, tap or drag. Empty when
    /// there is none, and the finger has to be led step by step.
    QStringList command() const;

private:
    bool staysOnButton() const;
    bool isDrag() const;

    const TouchedButton m_button;
    QList<QPoint> m_places;
};

} // namespace simulator
