#include "uphyvalue.h"

namespace
{

constexpr int plusZero = 0x40;
constexpr int plusEnd = 0x5F;
constexpr int minusZero = 0x60;
constexpr int minusEnd = 0x7F;
constexpr int notSet = 0; // of a PHY that was never tuned; stepped as zero is

constexpr quint32 disconnectBits = 0x1F;

quint32 word(int value)
{
    return static_cast<quint32>(value);
}

} // namespace

int uphyvalue::swingUp(int value)
{
    if (value > minusZero && value <= minusEnd) {
        return value - 1;
    }
    if (value >= plusZero && value < plusEnd) {
        return value + 1;
    }
    return value == minusZero || value == notSet ? plusZero : value;
}

int uphyvalue::swingDown(int value)
{
    if (value >= minusZero && value < minusEnd) {
        return value + 1;
    }
    if (value > plusZero && value <= plusEnd) {
        return value - 1;
    }
    return value == plusZero || value == notSet ? minusZero : value;
}

int uphyvalue::disconnectUp(int value)
{
    return (word(value) & disconnectBits) == disconnectBits ? value : value + 1;
}

int uphyvalue::disconnectDown(int value)
{
    return (word(value) & disconnectBits) == 0 ? value : value - 1;
}

QString uphyvalue::swingNumber(int value)
{
    if (value >= plusZero && value <= plusEnd) {
        return QString::number(value - plusZero);
    }
    return value > minusZero && value <= minusEnd ? QString::number(minusZero - value) : QString();
}

bool uphyvalue::isMinusZero(int value)
{
    return value == minusZero;
}

QString uphyvalue::disconnectDigits(int value)
{
    return QString::number(word(value), 16);
}
