#pragma once

#include <QColor>

namespace simulator
{

/// The colours that the simulated unit's own screens and its bezel share.
namespace colors
{
inline const QColor accent(28, 160, 248);
inline const QColor background(11, 12, 13);
inline const QColor surface(51, 51, 53);
inline const QColor text(240, 240, 240);
inline const QColor dimmedText(150, 152, 156);
inline const QColor warning(255, 176, 32);
} // namespace colors

} // namespace simulator
