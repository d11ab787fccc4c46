#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

ConsoleResult ncm(Simulator &simulator, const QStringList &, ConsoleSession &)
{
    return ConsoleResult::done(simulator.unit().ncmTest().description());
}

} // namespace

void addNcmCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"ncm", place, Effect::None, ncm},
                });
}

} // namespace simulator
