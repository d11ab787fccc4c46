#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/journalreader.h"
#include "hardware/unit/unit.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

#include <algorithm>

namespace simulator
{

namespace
{

const int defaultTimeoutMs = 2000;
const int linesShown = 20;

/// In host time, how long a line may wait to be told to who follows the journal.
const int followMs = 20;

/// Whether a line, with its time in front, is one that a pattern sees.
bool isWanted(const QString &timedLine, const hardware::JournalPattern &pattern, bool isAll)
{
    const QString line = timedLine.section(QLatin1Char(' '), 1);
    const bool isQuiet = hardware::JournalPattern(line).hearsQuietSources();
    return (isAll || !isQuiet || pattern.hearsQuietSources()) && pattern.matches(line);
}

/// Tells the lines that are written from now on, as long as somebody listens.
ConsoleResult follow(Simulator &simulator, const hardware::JournalPattern &pattern, bool isAll,
                     const ConsoleSession &session)
{
    if (!session.isListenedTo()) {
        return ConsoleResult::failed(
            QStringLiteral("only headunit-ctl can follow the journal; nothing would end it here"));
    }
    hardware::Journal &journal = simulator.unit().journal();
    hardware::JournalReader reader(journal);
    bool goesOn = true;
    while (goesOn) {
        // What is written up to the end is told, too.
        goesOn = session.isListenedTo() && simulator.graphicalThread().pause(followMs);
        QStringList lines =
            journal.timedLines(QString(), reader.position(), hardware::Journal::Everything);
        reader.goTo(reader.position() + lines.size());
        lines.erase(
            std::remove_if(lines.begin(), lines.end(),
                           [&](const QString &line) { return !isWanted(line, pattern, isAll); }),
            lines.end());
        session.tell(lines);
    }
    return ConsoleResult::done();
}

ConsoleResult journal(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    QStringList words = arguments;
    const bool isAll = words.removeOne(QStringLiteral("--all"));
    const bool isFollowed = words.removeOne(QStringLiteral("--follow"));
    if (words.size() > 1) {
        return ConsoleResult::failed(QStringLiteral("usage: journal [--all] [--follow] [PATTERN]"));
    }
    const hardware::JournalPattern pattern(words.value(0));
    if (!pattern.isValid()) {
        return ConsoleResult::failed(pattern.error());
    }
    return isFollowed
        ? follow(simulator, pattern, isAll, session)
        : ConsoleResult::done(simulator.unit().journal().timedLines(
            words.value(0), 0,
            isAll ? hardware::Journal::Everything : hardware::Journal::WithoutQuietSources));
}

/// The end of what was there to be found, that of quiet sources too for who looks at one.
QStringList lastLines(const hardware::Journal &journal, qint64 from, bool hearsQuietSources)
{
    const QStringList lines = journal.lines(
        QString(), from,
        hearsQuietSources ? hardware::Journal::Everything : hardware::Journal::WithoutQuietSources);
    return lines.mid(qMax(0, lines.size() - linesShown));
}

ConsoleResult expect(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    const QString &wanted = arguments.first();
    const hardware::JournalPattern pattern(wanted);
    if (!pattern.isValid()) {
        return ConsoleResult::failed(pattern.error());
    }
    int ms = defaultTimeoutMs;
    int hostMs = 0;
    QString error;
    if (!readWait(simulator, arguments.value(1), &ms, &hostMs, &error)) {
        return ConsoleResult::failed(error);
    }
    const hardware::Journal &journal = simulator.unit().journal();
    const qint64 from = session.reader().position();
    qint64 next = from;
    qint64 found = -1;
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
            lastLines(journal, from, pattern.hearsQuietSources()));
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

ConsoleResult mark(Simulator &, const QStringList &, ConsoleSession &session)
{
    session.reader().goToEnd();
    return ConsoleResult::done();
}

} // namespace

void addJournalCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"journal", place, journal},
                    {"expect", place, expect},
                    {"absent", place, absent},
                    {"mark", place, mark},
                });
}

} // namespace simulator
