#include "clock.h"

#include <cerrno>
#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>
#include <mutex>

namespace hardware
{

/// The factor, and the time that has passed by it and by those before.
class Clock::Pace
{
public:
    explicit Pace(double factor)
        : m_factor(factor)
        , m_isHosts(factor == 1.0)
    {
    }

    double factor() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_factor;
    }

    void setFactor(double factor)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_elapsedBefore = elapsedLocked();
        m_since = std::chrono::steady_clock::now();
        m_factor = factor;
        m_isHosts = m_isHosts && factor == 1.0;
    }

    bool isHosts() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_isHosts;
    }

    qint64 elapsed() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return elapsedLocked();
    }

private:
    qint64 elapsedLocked() const
    {
        const std::chrono::duration<double, std::nano> host =
            std::chrono::steady_clock::now() - m_since;
        return m_elapsedBefore + std::llround(host.count() * m_factor);
    }

    mutable std::mutex m_mutex;
    double m_factor;
    bool m_isHosts;
    std::chrono::steady_clock::time_point m_since = std::chrono::steady_clock::now();
    qint64 m_elapsedBefore = 0; // when the factor became this one
};

Clock::Clock(double factor)
    : m_pace(std::make_shared<Pace>(factor))
{
}

double Clock::factor() const
{
    return m_pace->factor();
}

void Clock::setFactor(double factor)
{
    m_pace->setFactor(factor);
}

bool Clock::isHosts() const
{
    return m_pace->isHosts();
}

qint64 Clock::elapsed() const
{
    return m_pace->elapsed();
}

int Clock::hostMs(int unitMs) const
{
    if (unitMs <= 0) {
        return unitMs;
    }
    const double hostMs = std::round(unitMs / factor());
    return int(qBound(1.0, hostMs, double(std::numeric_limits<int>::max())));
}

void Clock::sleep(qint64 unitMicroseconds) const
{
    if (unitMicroseconds <= 0) {
        return;
    }
    constexpr qint64 nanosecondsPerSecond = 1000000000;
    const qint64 duration = qMax<qint64>(1, std::llround(unitMicroseconds * 1000.0 / factor()));

    // The one sleep that a gate leaves alone: others would be sped up a second time.
    timespec end;
    clock_gettime(CLOCK_MONOTONIC, &end);
    const qint64 nanoseconds = end.tv_nsec + duration % nanosecondsPerSecond;
    end.tv_sec += duration / nanosecondsPerSecond + nanoseconds / nanosecondsPerSecond;
    end.tv_nsec = nanoseconds % nanosecondsPerSecond;
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &end, nullptr) == EINTR) { }
}

} // namespace hardware
