#pragma once

#include "hardware/unit/calltimes.h"

#include <QElapsedTimer>
#include <QList>
#include <QMap>
#include <QMutex>
#include <QObject>

#include <atomic>

namespace hardware
{
class Unit;
}

namespace simulator
{

/// Measures how long the graphical thread, on which it is made, gets round to nothing else, in the
/// unit's time, where that is 100 ms and more, or where a gate saw a call. Journal, for the first:
/// stall <seconds> <by whom>: <call> <seconds>, …
class StallMeter : public QObject
{
public:
    static constexpr int shortestMs = 100;
    static constexpr qint64 idle = -1;

    struct Stall
    {
        QString by; ///< The button's id; what else it follows from where there is none.
        double seconds;
        QMap<QString, double> calls; ///< Seconds by call; "rest" is what no call explains.
    };

    explicit StallMeter(hardware::Unit &unit);

    /// An event is delivered from the thread's loop.
    void begin();
    void end();

    /// Host seconds since the graphical thread began what it is at; 0 while it waits. Any thread.
    double busySeconds() const;

    /// The newest 10 000. Any thread.
    QList<Stall> stalls() const;
    /// Those of at least \a ms, summed up by button and call, the longest first. Any thread.
    QStringList summary(int ms = shortestMs) const;

private:
    void restart();
    void measure();
    void tell(const Stall &stall, const hardware::Cause &cause);
    QString button(const hardware::Cause &cause) const;

    hardware::Unit &m_unit;
    hardware::CallTimes m_calls;
    QElapsedTimer m_busy;
    std::atomic<qint64> m_busySince{idle}; // by the host's monotonic clock, in milliseconds
    bool m_isInEvent = false;
    mutable QMutex m_mutex;
    QList<Stall> m_stalls;
};

} // namespace simulator
