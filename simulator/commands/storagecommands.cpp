#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

ConsoleResult plug(Simulator &simulator, const QStringList &arguments, ConsoleSession &session)
{
    const QString folder = arguments.size() > 1 ? session.path(arguments.at(1)) : QString();
    QString error;
    return simulator.unit().storage().plug(arguments.first(), folder, &error)
        ? ConsoleResult::done()
        : ConsoleResult::failed(error);
}

ConsoleResult pull(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    QString error;
    return simulator.unit().storage().pull(arguments.first(), &error)
        ? ConsoleResult::done()
        : ConsoleResult::failed(error);
}

} // namespace

void addStorageCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"plug", place, Effect::World, plug},
                    {"pull", place, Effect::World, pull},
                });
}

} // namespace simulator
