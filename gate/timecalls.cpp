// The C library's sleeps and clock, as the whole process calls them while a gate is open: in the
// unit's time. With factor 1, and without a gate, they are the C library's own.

#include "gate.h"
#include "hostcall.h"

#include <sys/select.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
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
    const Gate *gate = gateWithOwnTime();
    if (gate == nullptr) {
        return hostCall<::sleep>(__func__)(seconds);
    }
    double left = 0;
    return sleepInUnit(*gate, seconds * nanosecondsPerSecond, &left) == 0
        ? 0
        : static_cast<unsigned int>(std::ceil(left / nanosecondsPerSecond));
}

int usleep(useconds_t microseconds)
{
    const Gate *gate = gateWithOwnTime();
    if (gate == nullptr) {
        return hostCall<::usleep>(__func__)(microseconds);
    }
    double left = 0;
    return sleepInUnit(*gate, microseconds * 1000.0, &left);
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
    const Gate *gate = gateWithOwnTime();
    if (gate == nullptr || !isDuration(timeout)) {
        return hostCall<::select>(__func__)(count, readable, writable, exceptional, timeout);
    }
    const double unitTimeout = timeout->tv_sec * microsecondsPerSecond + timeout->tv_usec;
    timeval hostTimeout = asTimeval(hostTime(*gate, unitTimeout * 1000) / 1000);
    const int result =
        hostCall<::select>(__func__)(count, readable, writable, exceptional, &hostTimeout);
    const double left = hostTimeout.tv_sec * microsecondsPerSecond + hostTimeout.tv_usec;
    *timeout = asTimeval(std::min(unitTimeout, left * gate->timeFactor()));
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
