#pragma once

#include <QEvent>
#include <QList>
#include <QPoint>

namespace simulator
{

class Bezel;

/// A finger on the unit's screen. It works like a real one: through the window, which finds out
/// what lies under it. Positions are pixels of the screen. Graphical thread only.
class Finger
{
public:
    static constexpr int maxSteps = 1000;

    explicit Finger(Bezel &bezel);
    Q_DISABLE_COPY(Finger)

    bool isDown() const;
    QPoint position() const;

    void putDown(const QPoint &position);
    void moveTo(const QPoint &position);
    /// Lifts the finger where it is.
    void lift();

    void tap(const QPoint &position);
    /// Goes down at \a from, to \a to in \a count equal steps, 1 to maxSteps, and up there.
    void drag(const QPoint &from, const QPoint &to, int count);

    /// Where these steps lead, one after the other.
    static QList<QPoint> steps(const QPoint &from, const QPoint &to, int count);

private:
    void send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons);

    Bezel &m_bezel;
    bool m_down = false;
    QPoint m_position;
    ulong m_timestamp = 0;
};

} // namespace simulator
