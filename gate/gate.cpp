#include "gate.h"

#include "hardware/unit/unit.h"

#include <QFile>

#include <sys/time.h>

#include <atomic>
#include <cmath>

namespace hardware
{

namespace
{

std::atomic<const Gate *> livingGate{nullptr};

constexpr qint64 nanosecondsPerSecond = 1000000000;

qint64 nanoseconds(const timespec &time)
{
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

} // namespace

Gate::Gate(const Unit &unit)
    : m_unit(unit)
    , m_root(QFile::encodeName(unit.folder().root()))
{
    clock_gettime(CLOCK_REALTIME, &m_madeAt);
    clock_gettime(CLOCK_MONOTONIC, &m_madeWhen);
    const Gate *other = livingGate.exchange(this);
    if (other != nullptr) {
        qFatal("A second gate was made while the first one was open.");
    }
}

Gate::~Gate()
{
    livingGate = nullptr;
}

const Gate *Gate::current()
{
    return livingGate.load(std::memory_order_acquire);
}

double Gate::timeFactor() const
{
    return m_unit.clock().factor();
}

timeval Gate::unitTime() const
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    const qint64 hostElapsed = nanoseconds(now) - nanoseconds(m_madeWhen);
    const qint64 time = nanoseconds(m_madeAt) + std::llround(hostElapsed * timeFactor());
    timeval shown;
    shown.tv_sec = time / nanosecondsPerSecond;
    shown.tv_usec = time % nanosecondsPerSecond / 1000;
    return shown;
}

} // namespace hardware
