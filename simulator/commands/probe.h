#pragma once

#include <QPoint>
#include <QStringList>

namespace simulator
{

class Simulator;

/// Touches the screen and waits until all that follows from it is done: on the graphical thread,
/// in tasks of the thread pool, in checks and updates, and over a restart. From a thread that is
/// not the graphical one.
class Probe
{
public:
    explicit Probe(Simulator &simulator);

    /// False with a sentence in \a error when the touch does not come or does not come to an end
    /// within five minutes of the unit.
    bool touch(const QPoint &place, QString *error);

    /// What the last touch led to.
    QStringList effects() const;

private:
    bool isOver(int *lines) const;
    QStringList texts() const;

    Simulator &m_simulator;
    qint64 m_cause = 0;
    QStringList m_before;
    QStringList m_after;
};

} // namespace simulator
