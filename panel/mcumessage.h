#pragma once

#include <QString>

namespace panel
{

/// What is known of something that the microcontroller was told, as the journal has it: bytes in
/// hexadecimal, or what the platform asked of it in words. Empty for anything else.
QString mcuMeaning(const QString &text);

} // namespace panel
