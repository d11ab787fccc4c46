#include "probe.h"

#include "effects.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

#include <QDeadlineTimer>

#include <algorithm>

using hardware::Journal;

namespace simulator
{

namespace
{

constexpr int startMs = 5000;     // of the host
constexpr int longestMs = 300000; // of the unit
constexpr int quietUnitMs = 300;  // after the last line, before all counts as done
constexpr int quietHostMs = 50;

/// 1 where a line tells that something begins which goes on beside the graphical thread, -1 where
/// it ends, 0 otherwise.
int begun(const QString &line)
{
    static const QRegularExpression begins(
        QStringLiteral("^(threads start |unit reboot$|update verify |dab update /)"));
    static const QRegularExpression ends(
        QStringLiteral("^(threads end |unit booted$|update verified |dab update (ok|failed))"));
    return int(begins.match(line).hasMatch()) - int(ends.match(line).hasMatch());
}

} // namespace

Probe::Probe(Simulator &simulator)
    : m_simulator(simulator)
{
}

bool Probe::touch(const QPoint &place, QString *error)
{
    const Journal &journal = m_simulator.unit().journal();
    const qint64 from = journal.end();
    m_before = texts();
    QMetaObject::invokeMethod(
        &m_simulator, [this, place] { m_simulator.finger().tap(place); }, Qt::QueuedConnection);
    const qint64 start =
        journal.waitFor(hardware::JournalPattern(QStringLiteral("/^touch press /")), from, startMs);
    if (start < 0) {
        *error = QStringLiteral("the touch does not come to the screen");
        return false;
    }
    m_cause = journal.entries(QString(), start, Journal::Everything).constFirst().cause;

    const hardware::Clock &clock = m_simulator.unit().clock();
    const QDeadlineTimer deadline(clock.hostMs(longestMs));
    const int quietMs = std::max(quietHostMs, clock.hostMs(quietUnitMs));
    int lines = -1;
    while (!isOver(&lines)) {
        if (deadline.hasExpired() || !m_simulator.graphicalThread().pause(quietMs)) {
            *error = QStringLiteral("what the touch led to does not come to an end");
            return false;
        }
    }
    m_after = texts();
    return true;
}

QStringList Probe::effects() const
{
    return simulator::effects(m_simulator.unit().journal().following(m_cause), m_before, m_after);
}

/// \a lines is how many there were when this was asked last.
bool Probe::isOver(int *lines) const
{
    // Behind all that is queued.
    m_simulator.graphicalThread().run([] {});
    const QList<Journal::Line> all = m_simulator.unit().journal().following(m_cause);
    const int former = *lines;
    *lines = all.size();
    bool isHandled = false;
    int open = 0;
    for (const Journal::Line &line : all) {
        isHandled = isHandled || line.text == QLatin1String("touch handled");
        open += begun(line.text);
    }
    return isHandled && open <= 0 && former == all.size();
}

QStringList Probe::texts() const
{
    QStringList texts;
    m_simulator.graphicalThread().run([&] { texts = m_simulator.screenReader().texts(); });
    return texts;
}

} // namespace simulator
