#include "completion.h"

#include "commandline.h"
#include "verbs.h"

#include <algorithm>

namespace simulator
{

namespace
{

const char *const takeVerbs[] = {"fails", "try", "help"};

/// The words that a verb takes as they are at that place: those of "on|off" and "--all".
QStringList fixedWords(const Verb &verb, int place)
{
    QString word = verb.usage.section(QLatin1Char(' '), place, place);
    word.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
    const bool isFixed = word.contains(QLatin1Char('|')) || word.startsWith(QLatin1Char('-'))
        || word == word.toLower();
    return isFixed ? word.split(QLatin1Char('|'), Qt::SkipEmptyParts) : QStringList();
}

QStringList candidates(const QStringList &words, const std::function<QStringList()> &buttons)
{
    const QList<Verb> verbs = verbTable();
    const Verb *verb = findVerb(verbs, words.value(0));
    if (words.isEmpty()
        || (words.size() == 1
            && std::find(std::begin(takeVerbs), std::end(takeVerbs), words.first())
                != std::end(takeVerbs))) {
        return verbNames(verbs);
    }
    if (verb == nullptr) {
        return QStringList();
    }
    const int place = words.size() - 1;
    const bool isId = verb->usage.section(QLatin1Char(' '), place, place) == QLatin1String("ID");
    return isId ? buttons() : fixedWords(*verb, place);
}

} // namespace

QStringList completions(const QString &line, const std::function<QStringList()> &buttons)
{
    const int start = line.lastIndexOf(QLatin1Char(' ')) + 1;
    const QString word = line.mid(start);
    QStringList words;
    QString error;
    if (!commandline::split(line.left(start), {}, &words, &error)) {
        return QStringList();
    }
    QStringList found = candidates(words, buttons);
    found.erase(std::remove_if(found.begin(), found.end(),
                               [&word](const QString &candidate) {
                                   return !candidate.startsWith(word)
                                       || commandline::join({candidate}) != candidate;
                               }),
                found.end());
    found.sort();
    found.removeDuplicates();
    return found;
}

} // namespace simulator
