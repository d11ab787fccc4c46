#pragma once

#include <QPoint>
#include <QString>

namespace simulator
{

/// Reads a whole number from \a least to \a most. False with a sentence in \a error that says what
/// \a name stands for and what was given instead.
bool readNumber(const QString &word, const QString &name, int least, int most, int *number,
                QString *error);

/// Reads a number from \a least to \a most; otherwise as readNumber().
bool readFactor(const QString &word, const QString &name, double least, double most, double *factor,
                QString *error);

/// Reads how many times faster than the host's the unit's time is to pass. False with a sentence in
/// \a error, as for a whole number.
bool readSpeed(const QString &word, const QString &name, double *factor, QString *error);

/// The word that marks a value as wrong on purpose, or none. False with a sentence in \a error for
/// any other word.
bool readWrong(const QString &word, bool *isWrong, QString *error);

/// As readNumber(); with \a isWrong any whole number is taken, without it the sentence tells of
/// that.
bool readNumberOrWrong(const QString &word, const QString &name, int least, int most, bool isWrong,
                       int *number, QString *error);

/// Reads a place on the screen, in pixels, or up to \a beyond pixels off it.
bool readPosition(const QString &x, const QString &y, QPoint *position, QString *error,
                  int beyond = 0);

} // namespace simulator
