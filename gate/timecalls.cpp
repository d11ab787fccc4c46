// The C library's sleeps and clock, as the whole process calls them while a gate is open: in the
// unit's time. Where that is the host's, and without a gate, they are the C library's own. The
// unit's journal has those that the plug-in waits with; nanosleep() is what Qt waits with.

#include "failure.h"
#include "gate.h"
#include "unitcall.h"

#include "hardware/unit/unittime.h"

#include <sys/select.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>

using hardware::Gate;
using hardware::hostCall;
using hardware::UnitTime;

namespace
{

constexpr double nanosecondsPerSecond = 1e9;
constexpr double microsecondsPerSecond = 1e6;
constexpr double shortestWait = 1000; // nanoseconds, for what is to last at all

/// The unit's time while a gate is open. Without one it is not asked for: the host's libraries want
/// to know the time before this program has begun.
std::shared_ptr<const UnitTime> unitTime()
{
    return Gate::current() == nullptr ? nullptr : UnitTime::current();
}

/// The same, where it is not the host's.
std::shared_ptr<const UnitTime> ownTime()
{
    const std::shared_ptr<const UnitTime> time = unitTime();
    return time != nullptr && !time->clock().isHosts() ? time : nullptr;
}

/// Host nanoseconds that a span of the unit's time lasts.
double hostTime(const UnitTime &time, double unitNanoseconds)
{
    return unitNanoseconds > 0 ? std::max(shortestWait, unitNanoseconds / time.clock().factor())
                               : 0;
}

timespec asTimespec(double nanoseconds)
{
    timespec time;
    time.tv_sec = decltype(time.tv_sec)(nanoseconds / nanosecondsPerSecond);
    time.tv_nsec = decltype(time.tv_nsec)(nanoseconds - time.tv_sec * nanosecondsPerSecond);
    return time;
}

timeval asTimeval(double microseconds)
{
    timeval time;
    time.tv_sec = decltype(time.tv_sec)(microseconds / microsecondsPerSecond);
    time.tv_usec = decltype(time.tv_usec)(microseconds - time.tv_sec * microsecondsPerSecond);
    return time;
}

double nanoseconds(const timespec &time)
{
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

/// As nanosleep(), for a span of the unit's time; what is left when a signal ends it is in unit
/// nanoseconds.
int sleepInUnit(const UnitTime &time, double unitNanoseconds, double *left)
{
    const timespec duration = asTimespec(hostTime(time, unitNanoseconds));
    timespec remaining = {};
    const int result = hostCall<::nanosleep>("nanosleep")(&duration, &remaining);
    *left = nanoseconds(remaining) * time.clock().factor();
    return result;
}

/// Tells of a wait how long it takes, by both clocks.
class TimedWait
{
public:
    TimedWait(const char *name, std::string asked)
        : m_name(name)
        , m_asked(std::move(asked))
        , m_unitStart(elapsed())
    {
    }

    void tell(int result) const
    {
        const std::chrono::duration<double> host = std::chrono::steady_clock::now() - m_hostStart;
        const double unit = double(elapsed() - m_unitStart) / nanosecondsPerSecond;
        hardware::tellOfWait(m_name, m_asked, result, unit, host.count());
    }

private:
    static qint64 elapsed()
    {
        const std::shared_ptr<const UnitTime> time = unitTime();
        return time == nullptr ? 0 : time->clock().elapsed();
    }

    const char *const m_name;
    const std::string m_asked;
    const qint64 m_unitStart;
    const std::chrono::steady_clock::time_point m_hostStart = std::chrono::steady_clock::now();
};

bool isDuration(const timespec *time)
{
    return time != nullptr && time->tv_sec >= 0 && time->tv_nsec >= 0
        && time->tv_nsec < nanosecondsPerSecond;
}

bool isDuration(const timeval *time)
{
    return time != nullptr && time->tv_sec >= 0 && time->tv_usec >= 0;
}

void show(const timeval &now, timeval *time)
{
    if (time != nullptr) {
        *time = now;
    }
}

} // namespace

extern "C" {

unsigned int sleep(unsigned int seconds)
{
    const TimedWait wait(__func__, std::to_string(seconds));
    const std::shared_ptr<const UnitTime> time = ownTime();
    unsigned int rest = 0;
    if (time == nullptr) {
        rest = hostCall<::sleep>(__func__)(seconds);
    } else {
        double left = 0;
        sleepInUnit(*time, seconds * nanosecondsPerSecond, &left);
        rest = static_cast<unsigned int>(std::ceil(left / nanosecondsPerSecond));
    }
    wait.tell(int(rest));
    return rest;
}

int usleep(useconds_t microseconds)
{
    const TimedWait wait(__func__, std::to_string(microseconds));
    const std::shared_ptr<const UnitTime> time = ownTime();
    double left = 0;
    const int result = time == nullptr ? hostCall<::usleep>(__func__)(microseconds)
                                       : sleepInUnit(*time, microseconds * 1000.0, &left);
    wait.tell(result);
    return result;
}

int nanosleep(const timespec *duration, timespec *remaining)
{
    const std::shared_ptr<const UnitTime> time = ownTime();
    if (time == nullptr || !isDuration(duration)) {
        return hostCall<::nanosleep>(__func__)(duration, remaining);
    }
    double left = 0;
    const int result = sleepInUnit(*time, nanoseconds(*duration), &left);
    if (result != 0 && remaining != nullptr) {
        *remaining = asTimespec(left);
    }
    return result;
}

int select(int count, fd_set *readable, fd_set *writable, fd_set *exceptional, timeval *timeout)
{
    const double asked =
        isDuration(timeout) ? timeout->tv_sec * microsecondsPerSecond + timeout->tv_usec : -1;
    const TimedWait wait(__func__, std::to_string(llround(asked)));
    const std::shared_ptr<const UnitTime> time = ownTime();
    int result = -1;
    if (hardware::failureOf(__func__) != hardware::Failure::None) {
        // errno says why
    } else if (time == nullptr || asked < 0) {
        result = hostCall<::select>(__func__)(count, readable, writable, exceptional, timeout);
    } else {
        timeval hostTimeout = asTimeval(hostTime(*time, asked * 1000) / 1000);
        result = hostCall<::select>(__func__)(count, readable, writable, exceptional, &hostTimeout);
        const double left = hostTimeout.tv_sec * microsecondsPerSecond + hostTimeout.tv_usec;
        *timeout = asTimeval(std::min(asked, left * time->clock().factor()));
    }
    wait.tell(result);
    return result;
}

int gettimeofday(timeval *time, void *zone) noexcept
{
    const int result = hostCall<::gettimeofday>(__func__)(time, zone);
    const std::shared_ptr<const UnitTime> own = ownTime();
    if (own != nullptr && result == 0) {
        show(own->now(), time);
    }
    return result;
}

} // extern "C"
