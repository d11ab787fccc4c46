#include "finger.h"

#include "bezel.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWindow>

namespace simulator
{

namespace
{
const ulong msBetweenEvents = 10;
}

Finger::Finger(Bezel &bezel)
    : m_bezel(bezel)
{
}

bool Finger::isDown() const
{
    return m_down;
}

QPoint Finger::position() const
{
    return m_position;
}

void Finger::putDown(const QPoint &position)
{
    m_position = position;
    m_down = true;
    send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
}

void Finger::moveTo(const QPoint &position)
{
    m_position = position;
    send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton);
}

void Finger::lift()
{
    m_down = false;
    send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
}

void Finger::tap(const QPoint &position)
{
    putDown(position);
    lift();
}

void Finger::drag(const QPoint &from, const QPoint &to, int count)
{
    putDown(from);
    const QList<QPoint> places = steps(from, to, count);
    for (const QPoint &place : places) {
        moveTo(place);
    }
    lift();
}

QList<QPoint> Finger::steps(const QPoint &from, const QPoint &to, int count)
{
    QList<QPoint> places;
    for (int step = 1; step <= count; ++step) {
        places.append(from + (to - from) * step / count);
    }
    return places;
}

void Finger::send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QWindow *window = m_bezel.windowHandle();
    const QPoint local = m_position + m_bezel.screenRect().topLeft();
    QMouseEvent event(type, local, local, window->mapToGlobal(local), button, buttons,
                      Qt::NoModifier);
    m_timestamp += msBetweenEvents;
    event.setTimestamp(m_timestamp);
    QCoreApplication::sendEvent(window, &event);
}

} // namespace simulator
