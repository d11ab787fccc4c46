#include "console.h"

#include "commandline.h"
#include "consolesession.h"
#include "nearest.h"

#include "simulator/framework/graphicalthread.h"

#include <algorithm>
#include <limits>

namespace simulator
{

namespace
{

QString synopsis(const Console::Command &command)
{
    return command.usage.isEmpty() ? command.name : command.name + QLatin1Char(' ') + command.usage;
}

QStringList usageWords(const Console::Command &command)
{
    return command.usage.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

int minArguments(const Console::Command &command)
{
    const QStringList words = usageWords(command);
    return int(std::count_if(words.cbegin(), words.cend(), [](const QString &word) {
        return !word.startsWith(QLatin1Char('['));
    }));
}

int maxArguments(const Console::Command &command)
{
    return command.usage.endsWith(QLatin1String("...")) ? std::numeric_limits<int>::max()
                                                        : usageWords(command).size();
}

ConsoleResult goingDown()
{
    return ConsoleResult::refused(QStringLiteral("the unit is going down"));
}

} // namespace

Console::Console(GraphicalThread &graphicalThread)
    : m_graphicalThread(graphicalThread)
{
    add({QStringLiteral("help"), QStringLiteral("[COMMAND]"),
         QStringLiteral("Lists the commands, or explains one."), Place::AnyThread,
         [this](const QStringList &arguments, ConsoleSession &) { return help(arguments); }});
}

void Console::add(const Command &command)
{
    Q_ASSERT(find(command.name) == nullptr);
    m_commands.append(command);
}

ConsoleResult Console::run(const QString &line, ConsoleSession &session) const
{
    if (line.toUtf8().size() > commandline::maxLineBytes) {
        return ConsoleResult::failed(commandline::tooLong());
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
    const QString name = words.takeFirst();
    const Command *command = find(name);
    if (command == nullptr) {
        return ConsoleResult::refused(
            QStringLiteral("unknown command \"%1\"; \"help\" lists them").arg(name)
            + nearHint(name, names()));
    }
    if (words.size() < minArguments(*command) || words.size() > maxArguments(*command)) {
        return ConsoleResult::refused(QStringLiteral("usage: ") + synopsis(*command));
    }
    return runCommand(*command, words, session);
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
    QStringList lines;
    for (const Command &command : m_commands) {
        if (arguments.isEmpty()) {
            lines.append(synopsis(command).leftJustified(28) + command.help);
        } else if (command.name == arguments.first()) {
            return ConsoleResult::done({synopsis(command), command.help});
        }
    }
    return arguments.isEmpty()
        ? ConsoleResult::done(lines)
        : ConsoleResult::failed(QStringLiteral("unknown command \"%1\"").arg(arguments.first())
                                + nearHint(arguments.first(), names()));
}

QStringList Console::names() const
{
    QStringList names;
    for (const Command &command : m_commands) {
        names.append(command.name);
    }
    return names;
}

const Console::Command *Console::find(const QString &name) const
{
    const auto found =
        std::find_if(m_commands.cbegin(), m_commands.cend(),
                     [&name](const Command &command) { return command.name == name; });
    return found == m_commands.cend() ? nullptr : &*found;
}

} // namespace simulator
