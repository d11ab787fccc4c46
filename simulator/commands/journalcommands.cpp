#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "hardware/unit/journalreader.h"
#include "hardware/unit/unit.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>
#include <limits>

namespace simulator
{

namespace
{

const int defaultTimeoutMs = 2000;
const int linesShown = 20;

QString asJson(const hardware::Journal::Line &line)
{
    QJsonObject object;
    object[QStringLiteral("line")] = line.number;
    object[QStringLiteral("seconds")] = line.seconds;
    object[QStringLiteral("source")] = line.text.section(QLatin1Char(' '), 0, 0);
    object[QStringLiteral("text")] = line.text.section(QLatin1Char(' '), 1);
    object[QStringLiteral("cause")] = line.cause == 0
        ? QJsonValue()
        : QJsonObject(
            {{QStringLiteral("number"), line.cause}, {QStringLiteral("text"), line.causeText}});
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

ConsoleResult journal(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    using hardware::Journal;
    const QHash<QString, QString (*)(const Journal::Line &)> forms = {
        {QStringLiteral("--causes"), &Journal::withCause}, {QStringLiteral("--json"), asJson}};
    QStringList words = arguments;
    const Journal::Detail detail = words.removeOne(QStringLiteral("--all"))
        ? Journal::Everything
        : Journal::WithoutQuietSources;
    const auto form = forms.value(words.value(0), &Journal::withTime);
    if (forms.contains(words.value(0))) {
        words.removeFirst();
    }
    const hardware::JournalPattern check(words.value(0));
    if (words.size() > 1 || !check.isValid()) {
        return ConsoleResult::failed(words.size() > 1 ? QStringLiteral(
                                         "usage: journal [--all] [--causes or --json] [PATTERN]")
                                                      : check.error());
    }
    const QList<Journal::Line> entries =
        simulator.unit().journal().entries(words.value(0), 0, detail);
    QStringList lines;
    std::transform(entries.cbegin(), entries.cend(), std::back_inserter(lines), form);
    return ConsoleResult::done(lines);
}

QStringList lastLines(const hardware::Journal &journal, qint64 from)
{
    const QStringList lines = journal.lines(QString(), from);
    return lines.mid(qMax(0, lines.size() - linesShown));
}

ConsoleResult expect(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    const QString &wanted = arguments.first();
    const hardware::JournalPattern pattern(wanted);
    if (!pattern.isValid()) {
        return ConsoleResult::failed(pattern.error());
    }
    int ms = 0;
    QString error;
    if (!readNumber(arguments.value(1, QString::number(defaultTimeoutMs)), QStringLiteral("MS"), 0,
                    std::numeric_limits<int>::max(), &ms, &error)) {
        return ConsoleResult::failed(error);
    }
    const hardware::Journal &journal = simulator.unit().journal();
    const qint64 from = session.reader().position();
    qint64 next = from;
    qint64 found = -1;
    // Who gives a time means it.
    const int hostMs =
        arguments.size() > 1 ? simulator.unit().clock().hostMs(ms) : patienceMs(simulator, ms);
    simulator.graphicalThread().waitUntil(hostMs, [&] {
        const qint64 end = journal.end();
        found = journal.find(pattern, next);
        next = end;
        return found >= 0;
    });
    if (found < 0) {
        return ConsoleResult::failed(
            QStringLiteral(
                "no line matched \"%1\" within %2 ms; the journal's last lines since the "
                "last match:")
                .arg(wanted)
                .arg(ms),
            lastLines(journal, from));
    }
    session.reader().goTo(found + 1);
    return ConsoleResult::done();
}

ConsoleResult absent(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    const hardware::JournalPattern pattern(arguments.first());
    if (!pattern.isValid()) {
        return ConsoleResult::failed(pattern.error());
    }
    const QStringList found =
        simulator.unit().journal().lines(arguments.first(), session.reader().position());
    return found.isEmpty()
        ? ConsoleResult::done()
        : ConsoleResult::failed(QStringLiteral("the journal has \"%1\":").arg(arguments.first()),
                                found);
}

ConsoleResult stalls(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    int ms = StallMeter::shortestMs;
    QString error;
    return arguments.isEmpty()
            || readNumber(arguments.first(), QStringLiteral("MS"), 0,
                          std::numeric_limits<int>::max(), &ms, &error)
        ? ConsoleResult::done(simulator.stallMeter().summary(ms))
        : ConsoleResult::failed(error);
}

ConsoleResult mark(Simulator &, const QStringList &, ConsoleSession &session)
{
    session.reader().goToEnd();
    return ConsoleResult::done();
}

} // namespace

void addJournalCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(
        console, simulator,
        {
            {"journal", "[--all] [FORM] [PATTERN]",
             "Lists the journal with the unit's times, or its lines with that text or /REGEX/; "
             "--all also what was touched, asked and waited for; the FORM --causes also what "
             "each line follows from, --json an object for each.",
             place, journal},
            {"expect", "PATTERN [MS]",
             "Waits, for 2000 ms if not said, for a line, and reads on behind it.", place, expect},
            {"absent", "PATTERN", "Fails when the journal has such a line ahead.", place, absent},
            {"stalls", "[MS]",
             "Sums up by button and call how long the screen was blocked, MS and more at a time, "
             "100 if not said; shorter ones where a call of the plug-in was seen.",
             place, stalls},
            {"mark", "", "Reads on at the end of the journal.", place, mark},
        });
}

} // namespace simulator
