#pragma once

#include <QColor>

namespace simulator
{

/// The colours that the simulated unit's own screens and its bezel share.
namespace colors
{
inline constexpr QColor accent(28, 160, 248);
inline constexpr QColor background(11, 12, 13);
inline constexpr QColor surface(51, 51, 53);
inline constexpr QColor text(240, 240, 240);
inline constexpr QColor dimmedText(150, 152, 156);
inline constexpr QColor warning(255, 176, 32);
} // namespace colors

} // namespace simulator
