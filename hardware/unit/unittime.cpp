#include "unittime.h"

#include <ctime>
#include <sys/time.h>

namespace hardware
{

namespace
{

/// Never destroyed: a page may end the program while other threads still ask for the time.
std::shared_ptr<const UnitTime> &livingTime()
{
    static auto *const time = new std::shared_ptr<const UnitTime>;
    return *time;
}

constexpr qint64 nanosecondsPerSecond = 1000000000;

} // namespace

UnitTime::UnitTime(const Clock &clock)
    : m_clock(clock)
{
    timespec calendar;
    clock_gettime(CLOCK_REALTIME, &calendar);
    m_beginning = calendar.tv_sec * nanosecondsPerSecond + calendar.tv_nsec - clock.elapsed();
}

std::shared_ptr<const UnitTime> UnitTime::current()
{
    return std::atomic_load(&livingTime());
}

void UnitTime::setCurrent(std::shared_ptr<const UnitTime> time)
{
    std::atomic_store(&livingTime(), std::move(time));
}

timeval UnitTime::now() const
{
    const qint64 time = m_beginning + m_clock.elapsed();
    timeval shown;
    shown.tv_sec = time / nanosecondsPerSecond;
    shown.tv_usec = time % nanosecondsPerSecond / 1000;
    return shown;
}

} // namespace hardware
