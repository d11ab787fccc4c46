#pragma once

#include "clock.h"

#include <memory>

struct timeval;

namespace hardware
{

/// The time of the unit whose gate is open, for the C library's clock calls, which any thread may
/// make at any time, also while the gate closes.
class UnitTime
{
public:
    /// Begins with the host's date and time.
    explicit UnitTime(const Clock &clock);

    /// That of the open gate, or null.
    static std::shared_ptr<const UnitTime> current();

    /// Makes this one the current; null for none.
    static void setCurrent(std::shared_ptr<const UnitTime> time);

    const Clock &clock() const { return m_clock; }

    /// The unit's date and time, never going back.
    timeval now() const;

private:
    const Clock m_clock;
    qint64 m_beginning; // of the clock, in nanoseconds by the host's calendar
};

} // namespace hardware
