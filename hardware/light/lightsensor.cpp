#include "lightsensor.h"

#include "daynight.h"

#include "hardware/unit/clock.h"
#include "hardware/unit/journal.h"

#include <QMutexLocker>

namespace hardware
{

namespace
{
const QLatin1String sensorSource("als");
}

LightSensor::LightSensor(Journal &journal, const Clock &clock, DayNight &dayNight)
    : m_journal(journal)
    , m_clock(clock)
    , m_dayNight(dayNight)
    , m_loop(clock)
{
}

void LightSensor::report(int value)
{
    m_journal.write(sensorSource, QStringLiteral("reading %1").arg(value));
    deliver(value);
}

void LightSensor::startCurve(int perSecond, int daySeconds)
{
    Q_ASSERT(perSecond >= 1 && daySeconds >= 1);
    const QMutexLocker locker(&m_curveMutex);
    m_loop.stop();
    m_journal.write(sensorSource, QStringLiteral("curve %1 %2").arg(perSecond).arg(daySeconds));
    m_curve.reset(
        new Curve{1.0 / (double(perSecond) * daySeconds), 1000.0 / perSecond, m_clock.elapsed()});
    m_loop.start();
    m_loop.after(0, [this] { followCurve(); });
}

void LightSensor::stopCurve()
{
    const QMutexLocker locker(&m_curveMutex);
    if (m_curve != nullptr) {
        m_loop.stop();
        m_curve.reset();
        m_journal.write(sensorSource, QStringLiteral("curve ends"));
    }
}

bool LightSensor::followsCurve()
{
    const QMutexLocker locker(&m_curveMutex);
    return m_curve != nullptr;
}

std::optional<int> LightSensor::reading() const
{
    const QMutexLocker locker(&m_mutex);
    return m_reading;
}

std::optional<int> LightSensor::takeReading()
{
    const QMutexLocker locker(&m_mutex);
    if (m_taken) {
        return std::nullopt;
    }
    m_taken = true;
    return m_reading;
}

void LightSensor::deliver(int value)
{
    m_dayNight.takeReading(value);
    bool asked;
    {
        const QMutexLocker locker(&m_mutex);
        asked = !m_taken;
        m_reading = value;
        m_taken = false;
    }
    if (!asked) {
        emit readingReady();
    }
}

void LightSensor::followCurve()
{
    deliver(m_curve->day.next(m_curve->count * m_curve->intervalDays));
    ++m_curve->count;
    // Counted from the beginning, so that small delays do not add up.
    const double elapsedMs = double(m_clock.elapsed() - m_curve->started) / 1e6;
    const double leftMs = double(m_curve->count) * m_curve->intervalMs - elapsedMs;
    m_loop.after(qMax(m_clock.factor(), leftMs), [this] { followCurve(); });
}

} // namespace hardware
