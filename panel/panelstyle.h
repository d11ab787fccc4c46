#pragma once

#include <QColor>
#include <QFont>

class QApplication;
class QLabel;
class QTableView;

namespace panel
{

/// One look: dark as the unit, one blue accent, red for what is wrong.
namespace style
{

inline constexpr QColor accent(28, 160, 248);
inline constexpr QColor wrong(240, 84, 76);
inline constexpr QColor warm(240, 190, 90);
inline constexpr QColor dimmed(150, 152, 156);
inline constexpr QColor surface(34, 36, 39);
inline constexpr QColor background(20, 21, 23);

void apply(QApplication &application);

/// Of one width for every digit, so that what changes does not move.
QFont figures();

/// A table for values, which are read row by row.
void prepare(QTableView *table);

/// A label for a value that changes, as wide as \a widest, whatever it shows.
QLabel *valueLabel(const QString &widest, QWidget *parent);

} // namespace style

} // namespace panel
