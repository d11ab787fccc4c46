#pragma once

#include <QtGlobal>

#include <memory>

namespace hardware
{

/// The simulated unit's time: with factor f, a unit second lasts 1/f host seconds. Factor 1 changes
/// nothing. Copies show the same time. Thread-safe.
class Clock
{
public:
    /// Factors that a person may ask for.
    static constexpr double slowest = 0.01;
    static constexpr double fastest = 1000;

    explicit Clock(double factor = 1.0);

    double factor() const;

    /// From now on. Waits that have begun end when they would have.
    void setFactor(double factor);

    /// Whether the factor has been 1 all the time.
    bool isHosts() const;

    /// Nanoseconds of the unit's time since the clock was made; never backwards.
    qint64 elapsed() const;

    /// Host milliseconds that \a unitMs milliseconds of the unit last, at least 1 for a positive
    /// time.
    int hostMs(int unitMs) const;

    /// Blocks the calling thread for \a unitMicroseconds of the unit's time.
    void sleep(qint64 unitMicroseconds) const;

private:
    class Pace;

    const std::shared_ptr<Pace> m_pace;
};

} // namespace hardware
