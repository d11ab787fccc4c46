#include "effects.h"

#include <QRegularExpression>

#include <algorithm>
#include <vector>

namespace simulator
{

namespace
{

constexpr int kindWidth = 9;

struct Form
{
    QRegularExpression pattern;
    const char *kind; ///< Null where the line tells of nothing that was effected.
    const char *text; ///< "\1" and so on as in QString::replace().
};

/// The first that matches counts. A journal has thousands of lines: each pattern is read only once.
const std::vector<Form> &forms()
{
    static const std::vector<Form> forms = {
        {QRegularExpression("^(touch|console|trace|stall) .*$"), nullptr, nullptr},
        // How often it ends depends on the other end.
        {QRegularExpression("^gate select\\(.*$"), nullptr, nullptr},
        {QRegularExpression("^gate ((?:u|nano)?sleep\\(\\d+\\)).*$"), "wait", "\\1"},
        {QRegularExpression("^gate (.*)$"), "file", "\\1"},
        {QRegularExpression("^memory write (.*)$"), "register", "\\1"},
        {QRegularExpression("^memory set .*$"), nullptr, nullptr},
        {QRegularExpression("^memory (.*)$"), "memory", "\\1"},
        {QRegularExpression("^mcu (.*)$"), "mcu", "\\1"},
        {QRegularExpression("^shell (.*)$"), "command", "\\1"},
        {QRegularExpression("^asked (.*)$"), "asked", "\\1"},
        {QRegularExpression("^(settings|vendor) (.*)$"), "stored", "\\1 \\2"},
        {QRegularExpression("^receiver heard .*$"), nullptr, nullptr},
        // Its figures are those of the host's network.
        {QRegularExpression("^(ncm ended [a-z0-9 ]+),.*$"), "device", "\\1"},
        {QRegularExpression("^((?:keylight|receiver|storage|update verified) .*)$"), "device",
         "\\1"},
        {QRegularExpression("^(dab (?:tells|progress|restarted|update (?:ok|failed)).*)$"),
         "device", "\\1"},
        {QRegularExpression("^unit (.*)$"), "unit", "\\1"},
        {QRegularExpression("^(.*)$"), "call", "\\1"},
    };
    return forms;
}

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

QString quoted(const QStringList &texts)
{
    return QLatin1Char('"') + texts.join(QStringLiteral("\", \"")).replace('\n', "\\n")
        + QLatin1Char('"');
}

/// Another page is told as a whole.
QStringList screenEffects(const QStringList &before, const QStringList &after)
{
    const QStringList appeared = beyond(after, before);
    const QStringList gone = beyond(before, after);
    if (2 * gone.size() > before.size() && !appeared.isEmpty()) {
        return {labelled("screen", QStringLiteral("now ") + quoted(after))};
    }
    QStringList lines;
    if (!appeared.isEmpty()) {
        lines.append(labelled("screen", QStringLiteral("+ ") + quoted(appeared)));
    }
    if (!gone.isEmpty()) {
        lines.append(labelled("screen", QStringLiteral("- ") + quoted(gone)));
    }
    return lines;
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
    for (const Form &form : forms()) {
        if (form.pattern.match(line).hasMatch()) {
            return form.kind == nullptr
                ? QString()
                : labelled(form.kind,
                           QString(line).replace(form.pattern, QString::fromLatin1(form.text)));
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
    // What devices do on their own threads comes at its own time.
    std::stable_partition(found.begin(), found.end(), [](const QString &line) {
        return !line.startsWith(QLatin1String("device"));
    });
    return counted(found) + screenEffects(before, after);
}

} // namespace simulator
