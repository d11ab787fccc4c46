#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/journalreader.h"
#include "hardware/unit/unit.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

const int defaultTimeoutMs = 2000;
const int linesShown = 20;

ConsoleResult journal(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    const bool isAll = arguments.value(0) == QLatin1String("--all");
    const QString pattern = arguments.value(int(isAll));
    if (arguments.size() > 1 + int(isAll)) {
        return ConsoleResult::failed(QStringLiteral("usage: journal [--all] [PATTERN]"));
    }
    const hardware::JournalPattern check(pattern);
    return check.isValid() ? ConsoleResult::done(simulator.unit().journal().timedLines(
               pattern, 0,
               isAll ? hardware::Journal::Everything : hardware::Journal::WithoutQuietSources))
                           : ConsoleResult::failed(check.error());
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
