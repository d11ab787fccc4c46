#pragma once

#include <QtGlobal>

namespace hardware
{

/// The simulated unit's pace: with factor f, a unit second lasts 1/f host seconds. Factor 1
/// changes nothing. Thread-safe, since it never changes.
class Clock
{
public:
    explicit Clock(double factor = 1.0);

    double factor() const;

    /// Host milliseconds that \a unitMs milliseconds of the unit last, at least 1 for a positive
    /// time.
    int hostMs(int unitMs) const;

    /// Milliseconds of the unit that \a hostMs milliseconds of the host are.
    qint64 unitMs(qint64 hostMs) const;

    /// Blocks the calling thread for \a unitMicroseconds of the unit's time.
    void sleep(qint64 unitMicroseconds) const;

private:
    const double m_factor;
};

} // namespace hardware
