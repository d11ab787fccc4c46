#include "lightsensor.h"

#include "daycurve.h"
#include "daynight.h"

#include "hardware/unit/clock.h"
#include "hardware/unit/journal.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QMutexLocker>

namespace hardware
{

namespace
{
const auto source = QStringLiteral("als");
}

LightSensor::LightSensor(Journal &journal, const Clock &clock, DayNight &dayNight)
    : m_journal(journal)
    , m_clock(clock)
    , m_dayNight(dayNight)
{
}

LightSensor::~LightSensor()
{
    const QMutexLocker locker(&m_curveMutex);
    endCurve();
}

void LightSensor::report(int value)
{
    m_journal.write(source, QStringLiteral("reading %1").arg(value));
    deliver(value);
}

void LightSensor::startCurve(int perSecond, int daySeconds)
{
    Q_ASSERT(perSecond >= 1 && daySeconds >= 1);
    const QMutexLocker locker(&m_curveMutex);
    endCurve();
    m_journal.write(source, QStringLiteral("curve %1 %2").arg(perSecond).arg(daySeconds));
    m_stopping = false;
    m_curve.reset(QThread::create([=] { followCurve(perSecond, daySeconds); }));
    m_curve->start();
}

void LightSensor::stopCurve()
{
    const QMutexLocker locker(&m_curveMutex);
    if (endCurve()) {
        m_journal.write(source, QStringLiteral("curve ends"));
    }
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

void LightSensor::followCurve(int perSecond, int daySeconds)
{
    DayCurve curve;
    const double daysBetween = 1.0 / (double(perSecond) * daySeconds);
    const double msBetween = 1000.0 / perSecond / m_clock.factor();
    QElapsedTimer clock;
    clock.start();
    for (qint64 count = 0;; ++count) {
        deliver(curve.next(count * daysBetween));
        // Counted from the beginning, so that small delays do not add up.
        if (!pause(qMax(1, qRound(msBetween * (count + 1) - clock.elapsed())))) {
            return;
        }
    }
}

/// False when the curve is to end.
bool LightSensor::pause(int hostMs)
{
    const QDeadlineTimer end(hostMs);
    const QMutexLocker locker(&m_mutex);
    while (!m_stopping && m_stopped.wait(&m_mutex, end)) { }
    return !m_stopping;
}

bool LightSensor::endCurve()
{
    if (m_curve == nullptr) {
        return false;
    }
    {
        const QMutexLocker locker(&m_mutex);
        m_stopping = true;
    }
    m_stopped.wakeAll();
    m_curve->wait();
    m_curve.reset();
    return true;
}

} // namespace hardware
