#include "effects.h"

#include <algorithm>

namespace simulator
{

namespace
{

constexpr int kindWidth = 9;

struct Form
{
    const char *pattern;
    const char *kind; ///< Null where the line tells of nothing that was effected.
    const char *text; ///< "\1" and so on as in QString::replace().
};

/// The first that matches counts.
const Form forms[] = {
    {"^(touch|console|trace|stall) .*$", nullptr, nullptr},
    // How often it ends depends on the other end.
    {"^gate select\\(.*$", nullptr, nullptr},
    {"^gate ((?:u|nano)?sleep\\(\\d+\\)).*$", "wait", "\\1"},
    {"^gate (.*)$", "file", "\\1"},
    {"^memory write (.*)$", "register", "\\1"},
    {"^memory set .*$", nullptr, nullptr},
    {"^memory (.*)$", "memory", "\\1"},
    {"^mcu (.*)$", "mcu", "\\1"},
    {"^shell (.*)$", "command", "\\1"},
    {"^asked (.*)$", "asked", "\\1"},
    {"^(settings|vendor) (.*)$", "stored", "\\1 \\2"},
    {"^receiver heard .*$", nullptr, nullptr},
    {"^(keylight|panel|receiver|dab|storage|update|ncm|unit|fault) (.*)$", "device", "\\1 \\2"},
    {"^(.*)$", "call", "\\1"},
};

QString labelled(const char *kind, const QString &text)
{
    return QString::fromLatin1(kind).leftJustified(kindWidth) + text;
}

/// Those of \a texts that \a others have not as often.
QStringList beyond(QStringList texts, const QStringList &others)
{
    for (const QString &other : others) {
        texts.removeOne(other);
    }
    return texts;
}

/// Equal neighbours become one line that tells how many they were.
QStringList counted(const QStringList &lines)
{
    QStringList found;
    for (auto first = lines.cbegin(); first != lines.cend();) {
        const auto next = std::find_if(first, lines.cend(),
                                       [&first](const QString &line) { return line != *first; });
        const auto count = next - first;
        found.append(count == 1 ? *first : QStringLiteral("%1 (%2 times)").arg(*first).arg(count));
        first = next;
    }
    return found;
}

/// What a line of the journal tells; empty when that is nothing.
QString effect(const QString &line)
{
    for (const Form &form : forms) {
        const QRegularExpression pattern(QString::fromLatin1(form.pattern));
        if (pattern.match(line).hasMatch()) {
            return form.kind == nullptr
                ? QString()
                : labelled(form.kind,
                           QString(line).replace(pattern, QString::fromLatin1(form.text)));
        }
    }
    return QString();
}

} // namespace

QStringList effects(const QList<hardware::Journal::Line> &lines, const QStringList &before,
                    const QStringList &after)
{
    QStringList found;
    for (const hardware::Journal::Line &line : lines) {
        found.append(effect(line.text));
    }
    found.removeAll(QString());
    const QStringList appeared = beyond(after, before);
    for (const QString &text : appeared) {
        found.append(labelled("screen", QStringLiteral("+ \"%1\"").arg(text)));
    }
    const QStringList gone = beyond(before, after);
    for (const QString &text : gone) {
        found.append(labelled("screen", QStringLiteral("- \"%1\"").arg(text)));
    }
    return counted(found);
}

} // namespace simulator
