#include "allcommands.h"

#include "arguments.h"

#include "simulator/console/console.h"

namespace simulator
{

namespace
{

const int maxRepetitions = 100000;

ConsoleResult repeat(const Console &console, const QStringList &arguments, ConsoleSession &session)
{
    int count = 0;
    QString error;
    if (!readNumber(arguments.at(0), QStringLiteral("COUNT"), 1, maxRepetitions, &count, &error)) {
        return ConsoleResult::failed(error);
    }
    ConsoleResult result = ConsoleResult::done();
    for (int round = 0; round < count && result.isOk() && !result.endsSession; ++round) {
        result = console.run(arguments.at(1), session);
    }
    return result;
}

} // namespace

void addRepeatCommand(Console &console)
{
    console.add({QStringLiteral("repeat"), QStringLiteral("COUNT COMMAND"),
                 QStringLiteral("Runs a command, in quotes, so many times, until it fails."),
                 Console::Place::AnyThread,
                 [&console](const QStringList &arguments, ConsoleSession &session) {
                     return repeat(console, arguments, session);
                 }});
}

} // namespace simulator
