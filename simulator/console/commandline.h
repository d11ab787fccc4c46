#pragma once

#include <QStringList>

namespace simulator
{

/// The console's way to write words on a line, much like a shell's: blanks part words; '…' keeps
/// everything as it is; in "…" and outside quotes a backslash keeps the next character, except
/// that \n in "…" is a line break; # at the start of a word begins a comment.
namespace commandline
{

/// In bytes, without the line's end.
constexpr int maxLineBytes = 65536;

/// What is wrong with a line that is longer.
QString tooLong();

/// The words of a line; none for an empty one or a comment. False with a sentence in \a error for
/// a quote that is not closed or a backslash at the end.
bool split(const QString &line, QStringList *words, QString *error);

/// One line that split() takes apart into these words again.
QString join(const QStringList &words);

} // namespace commandline

} // namespace simulator
