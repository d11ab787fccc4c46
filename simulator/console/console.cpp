#include "console.h"

#include "commandline.h"
#include "consolesession.h"

#include "hardware/unit/cause.h"
#include "simulator/framework/graphicalthread.h"
#include "simulator/session/sessionhead.h"

#include <algorithm>

namespace simulator
{

namespace
{

QStringList usageWords(const Verb &verb)
{
    return verb.usage.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// Whether the verb can be used with so many arguments.
bool admits(const Verb &verb, int count)
{
    const QStringList words = usageWords(verb);
    const auto least = std::count_if(words.cbegin(), words.cend(), [](const QString &word) {
        return !word.startsWith(QLatin1Char('['));
    });
    return count >= least && (count <= words.size() || verb.usage.endsWith(QLatin1String("...")));
}

/// Whether a command that could do both has only asked. What can take arguments, and got none, had
/// nothing to say.
bool hasOnlyAsked(const Verb &verb, const QStringList &arguments, const ConsoleResult &result)
{
    return !result.lines.isEmpty() || (arguments.isEmpty() && !verb.usage.isEmpty());
}

/// The command's words, with the names of files and folders in full.
QStringList inFull(const Verb &verb, const QStringList &arguments, const ConsoleSession &session)
{
    const QStringList usage = usageWords(verb);
    QStringList words(verb.name);
    for (int i = 0; i < arguments.size(); ++i) {
        const bool isPath = usage.value(i).contains(QLatin1String("FOLDER"))
            || usage.value(i).contains(QLatin1String("FILE"));
        words.append(isPath ? session.path(arguments.at(i)) : arguments.at(i));
    }
    return words;
}

ConsoleResult goingDown()
{
    return ConsoleResult::refused(QStringLiteral("the unit is going down"));
}

} // namespace

Console::Console(GraphicalThread &graphicalThread, const QList<Verb> &verbs)
    : m_graphicalThread(graphicalThread)
    , m_verbs(verbs)
{
    add(QStringLiteral("help"), Place::AnyThread, Effect::None,
        [this](const QStringList &arguments, ConsoleSession &) { return help(arguments); });
}

void Console::add(const QString &name, Place place, Effect effect, const Handler &handler)
{
    Q_ASSERT(findVerb(m_verbs, name) != nullptr && !m_commands.contains(name));
    m_commands.insert(name, {place, effect, handler});
}

void Console::setListener(const Listener &listener)
{
    m_listener = listener;
}

QStringList Console::names() const
{
    return m_commands.keys();
}

ConsoleResult Console::run(const QString &line, ConsoleSession &session) const
{
    if (line.toUtf8().size() > commandline::maxLineBytes) {
        return ConsoleResult::failed(commandline::tooLong());
    }
    const QString complaint = sessionhead::complaint(line);
    if (!complaint.isEmpty()) {
        return ConsoleResult::refused(complaint);
    }
    QStringList words;
    QString error;
    if (!commandline::split(line, session.values(), &words, &error)) {
        return ConsoleResult::refused(error);
    }
    if (words.isEmpty()) {
        return ConsoleResult::done();
    }
    if (m_graphicalThread.isClosed()) {
        return goingDown();
    }
    const hardware::CauseScope scope(
        hardware::Cause::begun(QStringLiteral("console ") + line.trimmed()));
    const QString name = words.takeFirst();
    const Verb *verb = findVerb(m_verbs, name);
    const auto command = m_commands.constFind(name);
    if (verb == nullptr || command == m_commands.cend()) {
        return ConsoleResult::refused(unknownVerb(m_verbs, name));
    }
    if (!admits(*verb, words.size())) {
        return ConsoleResult::refused(QStringLiteral("usage: ") + verb->synopsis());
    }
    const ConsoleResult result = runCommand(*command, words, session);
    if (m_listener && command->effect == Effect::World && result.isOk()
        && !hasOnlyAsked(*verb, words, result)) {
        m_listener(inFull(*verb, words, session));
    }
    return result;
}

void Console::close()
{
    m_graphicalThread.close();
}

ConsoleResult Console::runCommand(const Command &command, const QStringList &arguments,
                                  ConsoleSession &session) const
{
    if (command.place == Place::AnyThread) {
        return command.handler(arguments, session);
    }
    ConsoleResult result = goingDown();
    m_graphicalThread.run([&] { result = command.handler(arguments, session); });
    return result;
}

ConsoleResult Console::help(const QStringList &arguments) const
{
    if (arguments.isEmpty()) {
        return ConsoleResult::done(helpOnAll(m_verbs));
    }
    const Verb *verb = findVerb(m_verbs, arguments.first());
    return verb == nullptr ? ConsoleResult::failed(unknownVerb(m_verbs, arguments.first()))
                           : ConsoleResult::done(helpOn(*verb));
}

} // namespace simulator
