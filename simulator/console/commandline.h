#pragma once

#include <QMap>
#include <QStringList>

namespace simulator
{

/// The console's way to write words on a line, much like a shell's: blanks part words; '…' keeps
/// everything as it is; in "…" and outside quotes a backslash keeps the next character, except
/// that \n in "…" is a line break; there, too, $NAME and ${NAME} stand for a value that was given
/// that name; # at the start of a word begins a comment.
namespace commandline
{

/// In bytes, without the line's end.
constexpr int maxLineBytes = 65536;

/// What is wrong with a line that is longer.
QString tooLong();

/// Whether it can be the name of a value: letters of English, digits and "_", and no digit first.
bool isName(const QString &word);

/// The words of a line, with \a values by their names; none for an empty one or a comment. False
/// with a sentence in \a error for a quote or a brace that is not closed, a backslash at the end, a
/// name without a value.
bool split(const QString &line, const QMap<QString, QString> &values, QStringList *words,
           QString *error);

/// One line that split() takes apart into these words again.
QString join(const QStringList &words);

} // namespace commandline

} // namespace simulator
