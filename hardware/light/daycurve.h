#pragma once

#include <QRandomGenerator>

namespace hardware
{

/// The light over a simulated day, with the sensor's noise: dark until six, brightest at noon, dark
/// again from eighteen o'clock. It begins at six. Two curves give the same numbers.
class DayCurve
{
public:
    /// What the sensor says in the dark and at noon, without noise.
    static constexpr int darkest = 4;
    static constexpr int lightest = 900;

    /// The light when that part of a day has passed, 1 being a whole day; noisier where it is
    /// lighter, never below 0.
    int next(double days);

private:
    QRandomGenerator m_noise{1};
};

} // namespace hardware
