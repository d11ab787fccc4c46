#pragma once

#include <QStringList>

#include <functional>

namespace simulator
{

/// What the last word of a line of the console can become: verbs for the first word and behind
/// those that take a verb, \a buttons for who takes a button's id, and words that the verb's usage
/// names. Only words that need no quotes; \a buttons is asked only where it matters.
QStringList completions(const QString &line, const std::function<QStringList()> &buttons);

} // namespace simulator
