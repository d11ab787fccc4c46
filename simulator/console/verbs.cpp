#include "verbs.h"

#include "nearest.h"

#include <algorithm>

namespace simulator
{

namespace
{

const int lineLength = 80;
const int helpColumn = 28;

/// The words of a text in lines that begin with so many blanks.
QStringList wrapped(const QString &text, int indent)
{
    const QString margin(indent, QLatin1Char(' '));
    QStringList lines;
    const QStringList words = text.split(QLatin1Char(' '));
    for (const QString &word : words) {
        if (!lines.isEmpty() && lines.last().size() + 1 + word.size() <= lineLength) {
            lines.last() += QLatin1Char(' ') + word;
        } else {
            lines.append(margin + word);
        }
    }
    return lines;
}

/// The help beside the synopsis, or below one that is too long for that.
QStringList beside(const Verb &verb)
{
    QStringList lines = wrapped(verb.help, helpColumn);
    const QString synopsis = QLatin1String("  ") + verb.synopsis();
    if (synopsis.size() < helpColumn) {
        lines.first().replace(0, synopsis.size(), synopsis);
    } else {
        lines.prepend(synopsis);
    }
    return lines;
}

} // namespace

QString Verb::synopsis() const
{
    return usage.isEmpty() ? name : name + QLatin1Char(' ') + usage;
}

const Verb *findVerb(const QList<Verb> &verbs, const QString &name)
{
    const auto found = std::find_if(verbs.cbegin(), verbs.cend(),
                                    [&name](const Verb &verb) { return verb.name == name; });
    return found == verbs.cend() ? nullptr : &*found;
}

QStringList verbNames(const QList<Verb> &verbs)
{
    QStringList names;
    for (const Verb &verb : verbs) {
        names.append(verb.name);
    }
    return names;
}

QStringList helpOnAll(const QList<Verb> &verbs)
{
    QStringList lines;
    QString group;
    for (const Verb &verb : verbs) {
        if (verb.group != group) {
            if (!lines.isEmpty()) {
                lines.append(QString());
            }
            group = verb.group;
            lines.append(QStringLiteral("%1, for example: %2").arg(group, verb.example));
        }
        lines += beside(verb);
    }
    return lines
        + QStringList({QString(), QStringLiteral("\"help COMMAND\" has an example of each.")});
}

QStringList helpOn(const Verb &verb)
{
    return QStringList(verb.synopsis()) + wrapped(verb.help, 2)
        + QStringList(QStringLiteral("For example: ") + verb.example);
}

QString unknownVerb(const QList<Verb> &verbs, const QString &name)
{
    return QStringLiteral("unknown command \"%1\"; \"help\" lists them").arg(name)
        + nearHint(name, verbNames(verbs));
}

} // namespace simulator
