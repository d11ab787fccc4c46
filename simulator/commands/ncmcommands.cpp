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

ConsoleResult ncmFault(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    const QString &fault = arguments.first();
    const bool isRefused = fault == QLatin1String("refused");
    if (!isRefused && fault != QLatin1String("none")) {
        return ConsoleResult::failed(
            QStringLiteral("FAULT is one of none, refused, not \"%1\"").arg(fault));
    }
    simulator.unit().ncmTest().refuseStarts(isRefused);
    return ConsoleResult::done();
}

} // namespace

void addNcmCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"ncm", place, ncm},
                    {"ncm-fault", place, ncmFault},
                });
}

} // namespace simulator
