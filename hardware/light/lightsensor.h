#pragma once

#include "daycurve.h"

#include "hardware/unit/deviceloop.h"

#include <QMutex>
#include <QObject>

#include <memory>
#include <optional>

namespace hardware
{

class Clock;
class DayNight;
class Journal;

/// The ambient light sensor. It reports what it is told to, or, when asked, the light of a
/// simulated day from a thread of its own. Like the real one it holds only its newest reading and
/// asks to be read once until that is done: however slowly it is read, nothing piles up.
/// Thread-safe.
class LightSensor : public QObject
{
    Q_OBJECT

public:
    /// Every reading goes to \a dayNight too, at once.
    LightSensor(Journal &journal, const Clock &clock, DayNight &dayNight);
    ~LightSensor() override = default;
    Q_DISABLE_COPY(LightSensor)

    /// Has a reading, of any size. Journal: als reading <value>.
    void report(int value);

    /// Follows a day that lasts \a daySeconds of the unit's time, again and again, with
    /// \a perSecond readings a second, both at least 1; in place of the curve before, if there is
    /// one. The readings are not journalled, for their number.
    /// Journal: als curve <perSecond> <daySeconds>.
    void startCurve(int perSecond, int daySeconds);
    /// Journal: als curve ends; nothing where there is no curve.
    void stopCurve();
    bool followsCurve();

    /// The newest reading; none before the first.
    std::optional<int> reading() const;

    /// The newest reading, unless it has been taken already.
    std::optional<int> takeReading();

signals:
    /// There is a reading to take. Not sent again before it has been taken; sent on the thread that
    /// the reading comes from.
    void readingReady();

private:
    /// A simulated day that is followed; the intervals are those between two readings.
    struct Curve
    {
        double intervalDays;
        double intervalMs; ///< of the unit
        qint64 started;    ///< by the clock
        DayCurve day = {};
        qint64 count = 0;
    };

    void deliver(int value);
    void followCurve();

    Journal &m_journal;
    const Clock &m_clock;
    DayNight &m_dayNight;
    mutable QMutex m_mutex;
    std::optional<int> m_reading;
    bool m_taken = true;
    QMutex m_curveMutex; // Starting and stopping.
    std::unique_ptr<Curve> m_curve;
    DeviceLoop m_loop; // The last one: its thread, which a curve has, uses all the others.
};

} // namespace hardware
