#pragma once

#include <QPoint>
#include <QString>

namespace simulator
{

/// Reads a whole number from \a least to \a most. False with a sentence in \a error that says what
/// \a name stands for and what was given instead.
bool readNumber(const QString &word, const QString &name, int least, int most, int *number,
                QString *error);

/// Reads a place on the screen, in pixels.
bool readPosition(const QString &x, const QString &y, QPoint *position, QString *error);

} // namespace simulator
