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
#include <QRegularExpression>

#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>

namespace simulator
{

namespace
{

const int defaultTimeoutMs = 2000;
const int linesShown = 20;

/// In host time, how long a line may wait to be told to who follows the journal.
const int followMs = 20;

/// What is asked of the journal, and in which form it is told.
struct Question
{
    QString pattern;
    hardware::Journal::Detail detail = hardware::Journal::WithoutQuietSources;
    QString (*form)(const hardware::Journal::Line &) = &hardware::Journal::withTime;
    bool isFollowed = false;
    std::optional<qint64> from; // number of a line
};

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

/// Takes "--from=LINE" out of the words. False with a sentence in \a error.
bool readFrom(QStringList *words, Question *question, QString *error)
{
    const QString option = QStringLiteral("--from=");
    const QStringList found = words->filter(QRegularExpression(QLatin1Char('^') + option));
    if (found.isEmpty()) {
        return true;
    }
    int line = 0;
    if (!readNumber(found.constFirst().mid(option.size()), QStringLiteral("LINE"), 0,
                    std::numeric_limits<int>::max(), &line, error)) {
        return false;
    }
    question->from = line;
    words->removeOne(found.constFirst());
    return true;
}

/// False with a sentence in \a error.
bool readQuestion(QStringList words, Question *question, QString *error)
{
    const QHash<QString, QString (*)(const hardware::Journal::Line &)> forms = {
        {QStringLiteral("--causes"), &hardware::Journal::withCause},
        {QStringLiteral("--json"), asJson}};
    question->isFollowed = words.removeOne(QStringLiteral("--follow"));
    if (words.removeOne(QStringLiteral("--all"))) {
        question->detail = hardware::Journal::Everything;
    }
    if (!readFrom(&words, question, error)) {
        return false;
    }
    if (forms.contains(words.value(0))) {
        question->form = forms.value(words.takeFirst());
    }
    question->pattern = words.value(0);
    const hardware::JournalPattern check(question->pattern);
    *error = words.size() > 1 ? QStringLiteral(
                 "usage: journal [--all] [--follow] [--from=LINE] [--causes or --json] [PATTERN]")
                              : check.error();
    return error->isEmpty();
}

QStringList told(const QList<hardware::Journal::Line> &lines, const Question &question)
{
    QStringList told;
    std::transform(lines.cbegin(), lines.cend(), std::back_inserter(told), question.form);
    return told;
}

/// Tells the lines that are written from now on, as long as somebody listens.
ConsoleResult follow(Simulator &simulator, const Question &question, const ConsoleSession &session)
{
    if (!session.isListenedTo()) {
        return ConsoleResult::failed(
            QStringLiteral("only headunit-ctl can follow the journal; nothing would end it here"));
    }
    hardware::Journal &journal = simulator.unit().journal();
    hardware::JournalReader reader(journal);
    reader.goTo(question.from.value_or(reader.position()));
    bool goesOn = true;
    while (goesOn) {
        // What is written up to the end is told, too.
        goesOn = session.isListenedTo() && simulator.graphicalThread().pause(followMs);
        const qint64 end = journal.end();
        QList<hardware::Journal::Line> lines =
            journal.entries(question.pattern, reader.position(), question.detail);
        while (!lines.isEmpty() && lines.constLast().number >= end) {
            lines.removeLast();
        }
        reader.goTo(end);
        session.tell(told(lines, question));
    }
    return ConsoleResult::done();
}

ConsoleResult journal(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    Question question;
    QString error;
    if (!readQuestion(arguments, &question, &error)) {
        return ConsoleResult::failed(error);
    }
    return question.isFollowed
        ? follow(simulator, question, session)
        : ConsoleResult::done(
            told(simulator.unit().journal().entries(question.pattern, question.from.value_or(0),
                                                    question.detail),
                 question));
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
                "no line matched \"%1\" within %2 ms; shown are the journal's last lines "
                "since the last match")
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
        : ConsoleResult::failed(QStringLiteral("the journal has \"%1\"").arg(arguments.first()),
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
    addCommands(console, simulator,
                {
                    {"journal", place, Effect::None, journal},
                    {"expect", place, Effect::None, expect},
                    {"absent", place, Effect::None, absent},
                    {"stalls", place, Effect::None, stalls},
                    {"mark", place, Effect::None, mark},
                });
}

} // namespace simulator
