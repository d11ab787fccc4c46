#include "daycurve.h"

#include <QtMath>

namespace hardware
{

namespace
{
const double noise = 0.02; // Of the reading, either way,
const double minNoise = 1; // but at least so much.
} // namespace

int DayCurve::next(double days)
{
    const double sun = qMax(0.0, qSin(2 * M_PI * days));
    const double light = darkest + (lightest - darkest) * sun;
    const double deviation = qMax(minNoise, noise * light);
    return qMax(0, qRound(light + deviation * (2 * m_noise.generateDouble() - 1)));
}

} // namespace hardware
