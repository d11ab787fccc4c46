// The C library's sleeps and clock, as the whole process calls them while a gate is open: in the
// unit's time. With factor 1, and without a gate, they are the C library's own. The unit's journal
// has those that the plug-in waits with; nanosleep() is what Qt waits with.

#include "gate.h"
#include "hostcall.h"
#include "unitcall.h"

#include <sys/select.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>

using hardware::Gate;
using hardware::hostCall;

namespace
{

constexpr double nanosecondsPerSecond = 1e9;
constexpr double microsecondsPerSecond = 1e6;
constexpr double shortestWait = 1000; // nanoseconds, for what is to last at all

const Gate *gateWithOwnTime()
{
    const Gate *gate = Gate::current();
    return gate != nullptr && gate->timeFactor() != 1.0 ? gate : nullptr;
}

/// Host nanoseconds that a span of the unit's time lasts.
double hostTime(const Gate &gate, double unitNanoseconds)
{
    return unitNanoseconds > 0 ? std::max(shortestWait, unitNanoseconds / gate.timeFactor()) : 0;
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
int sleepInUnit(const Gate &gate, double unitNanoseconds, double *left)
{
    const timespec duration = asTimespec(hostTime(gate, unitNanoseconds));
    timespec remaining = {};
    const int result = hostCall<::nanosleep>("nanosleep")(&duration, &remaining);
    *left = nanoseconds(remaining) * gate.timeFactor();
    return result;
}

/// How long a wait takes, for the journal.
class WaitClock
{
public:
    double unitSeconds() const
    {
        const std::chrono::duration<double> host = std::chrono::steady_clock::now() - m_start;
        const Gate *gate = Gate::current();
        return gate == nullptr ? host.count() : host.count() * gate->timeFactor();
    }

private:
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
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
    const WaitClock clock;
    const Gate *gate = gateWithOwnTime();
    unsigned int rest = 0;
    if (gate == nullptr) {
        rest = hostCall<::sleep>(__func__)(seconds);
    } else {
        double left = 0;
        sleepInUnit(*gate, seconds * nanosecondsPerSecond, &left);
        rest = static_cast<unsigned int>(std::ceil(left / nanosecondsPerSecond));
    }
    hardware::tellOfWait(__func__, std::to_string(seconds), int(rest), clock.unitSeconds());
    return rest;
}

int usleep(useconds_t microseconds)
{
    const WaitClock clock;
    const Gate *gate = gateWithOwnTime();
    double left = 0;
    const int result = gate == nullptr ? hostCall<::usleep>(__func__)(microseconds)
                                       : sleepInUnit(*gate, microseconds * 1000.0, &left);
    hardware::tellOfWait(__func__, std::to_string(microseconds), result, clock.unitSeconds());
    return result;
}

int nanosleep(const timespec *duration, timespec *remaining)
{
    const Gate *gate = gateWithOwnTime();
    if (gate == nullptr || !isDuration(duration)) {
        return hostCall<::nanosleep>(__func__)(duration, remaining);
    }
    double left = 0;
    const int result = sleepInUnit(*gate, nanoseconds(*duration), &left);
    if (result != 0 && remaining != nullptr) {
        *remaining = asTimespec(left);
    }
    return result;
}

int select(int count, fd_set *readable, fd_set *writable, fd_set *exceptional, timeval *timeout)
{
    const WaitClock clock;
    const double asked =
        isDuration(timeout) ? timeout->tv_sec * microsecondsPerSecond + timeout->tv_usec : -1;
    const Gate *gate = gateWithOwnTime();
    int result = 0;
    if (gate == nullptr || asked < 0) {
        result = hostCall<::select>(__func__)(count, readable, writable, exceptional, timeout);
    } else {
        timeval hostTimeout = asTimeval(hostTime(*gate, asked * 1000) / 1000);
        result = hostCall<::select>(__func__)(count, readable, writable, exceptional, &hostTimeout);
        const double left = hostTimeout.tv_sec * microsecondsPerSecond + hostTimeout.tv_usec;
        *timeout = asTimeval(std::min(asked, left * gate->timeFactor()));
    }
    hardware::tellOfWait(__func__, std::to_string(llround(asked)), result, clock.unitSeconds());
    return result;
}

int gettimeofday(timeval *time, void *zone) noexcept
{
    const int result = hostCall<::gettimeofday>(__func__)(time, zone);
    const Gate *gate = gateWithOwnTime();
    if (gate != nullptr && result == 0) {
        show(gate->unitTime(), time);
    }
    return result;
}

} // extern "C"
