#pragma once

#include <QString>

/// How the PHY's two parameters are encoded and stepped. A swing is sign and magnitude in 7 bits:
/// 0x40 + m is +m and 0x60 + m is -m, for m from 0 to 31, and the two zeros are states of their
/// own. A disconnect value is a whole register, of which only the low five bits are stepped.
namespace uphyvalue
{

/// One step towards +31, or towards -31; the ends, and values that are no swing, stay.
int swingUp(int value);
int swingDown(int value);

/// One step towards 31, or towards 0, of the low five bits; the ends stay.
int disconnectUp(int value);
int disconnectDown(int value);

/// The signed number in decimal, empty for minus zero, which has no number, and for a value that is
/// no swing.
QString swingNumber(int value);
bool isMinusZero(int value);

/// Up to eight lower-case hexadecimal digits.
QString disconnectDigits(int value);

} // namespace uphyvalue
