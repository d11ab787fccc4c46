#include "gesture.h"

#include "simulator/window/finger.h"
#include "simulator/window/screen.h"

#include <algorithm>

namespace simulator
{

namespace
{

QStringList words(const QPoint &place)
{
    return {QString::number(place.x()), QString::number(place.y())};
}

} // namespace

Gesture::Gesture(const QPoint &place, const TouchedButton &button)
    : m_button(button)
    , m_places({place})
{
}

void Gesture::moveTo(const QPoint &place)
{
    m_places.append(place);
}

QPoint Gesture::place() const
{
    return m_places.last();
}

QStringList Gesture::command() const
{
    if (staysOnButton()) {
        return {QStringLiteral("press"), m_button.name};
    }
    if (m_places.size() == 1) {
        return QStringList(QStringLiteral("tap")) + words(place());
    }
    if (isDrag()) {
        return QStringList(QStringLiteral("drag")) + words(m_places.first()) + words(place())
            + QStringList(QString::number(m_places.size() - 1));
    }
    return {};
}

bool Gesture::staysOnButton() const
{
    return !m_button.name.isEmpty()
        && std::all_of(m_places.cbegin(), m_places.cend(),
                       [this](const QPoint &place) { return m_button.area.contains(place); });
}

bool Gesture::isDrag() const
{
    const QRect glass(QPoint(0, 0), Screen::resolution);
    return m_places.size() - 1 <= Finger::maxSteps && glass.contains(place())
        && m_places.mid(1) == Finger::steps(m_places.first(), place(), m_places.size() - 1);
}

} // namespace simulator
