#pragma once

#include <QPair>
#include <QStringList>

namespace simulator
{

/// How many letters have to be put in, taken out or changed to make one word of the other; the case
/// of letters counts for nothing.
int editDistance(const QString &one, const QString &other);

/// Whether somebody may have meant the other word: no more than one letter in three differs, but
/// one always may.
bool isNear(const QString &word, const QString &other);

/// "; near: a, b" with up to three of the names that may have been meant by a word, the nearest
/// first; empty when there is none.
QString nearHint(const QString &word, const QStringList &names);

/// The same for names each of which stands behind a word by which it may be meant.
QString nearHint(const QString &word, QList<QPair<QString, QString>> names);

} // namespace simulator
