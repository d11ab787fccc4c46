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

inline const QColor &accent()
{
    static const QColor color(28, 160, 248);
    return color;
}
inline const QColor &wrong()
{
    static const QColor color(240, 84, 76);
    return color;
}
inline const QColor &warm()
{
    static const QColor color(240, 190, 90);
    return color;
}
inline const QColor &dimmed()
{
    static const QColor color(150, 152, 156);
    return color;
}
inline const QColor &surface()
{
    static const QColor color(34, 36, 39);
    return color;
}
inline const QColor &background()
{
    static const QColor color(20, 21, 23);
    return color;
}

void apply(QApplication &application);

/// Of one width for every digit, so that what changes does not move.
QFont figures();

/// A table for values, which are read row by row.
void prepare(QTableView *table);

/// A label for a value that changes, as wide as \a widest, whatever it shows.
QLabel *valueLabel(const QString &widest, QWidget *parent);

} // namespace style

} // namespace panel
