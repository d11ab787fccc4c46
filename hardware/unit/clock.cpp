#include "clock.h"

#include <cerrno>
#include <cmath>
#include <ctime>
#include <limits>

namespace hardware
{

Clock::Clock(double factor)
    : m_factor(factor)
{
}

double Clock::factor() const
{
    return m_factor;
}

int Clock::hostMs(int unitMs) const
{
    if (unitMs <= 0) {
        return unitMs;
    }
    const double hostMs = std::round(unitMs / m_factor);
    return int(qBound(1.0, hostMs, double(std::numeric_limits<int>::max())));
}

qint64 Clock::unitMs(qint64 hostMs) const
{
    return std::llround(double(hostMs) * m_factor);
}

void Clock::sleep(qint64 unitMicroseconds) const
{
    if (unitMicroseconds <= 0) {
        return;
    }
    constexpr qint64 nanosecondsPerSecond = 1000000000;
    const qint64 duration = qMax<qint64>(1, std::llround(unitMicroseconds * 1000.0 / m_factor));

    // The one sleep that a gate leaves alone: others would be sped up a second time.
    timespec end;
    clock_gettime(CLOCK_MONOTONIC, &end);
    const qint64 nanoseconds = end.tv_nsec + duration % nanosecondsPerSecond;
    end.tv_sec += duration / nanosecondsPerSecond + nanoseconds / nanosecondsPerSecond;
    end.tv_nsec = nanoseconds % nanosecondsPerSecond;
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &end, nullptr) == EINTR) { }
}

} // namespace hardware
