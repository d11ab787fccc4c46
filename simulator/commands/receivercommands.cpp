#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

ConsoleResult receiver(Simulator &simulator, const QStringList &, ConsoleSession &)
{
    hardware::GpsReceiver &receiver = simulator.unit().gpsReceiver();
    QStringList lines(receiver.state());
    const QStringList faults = receiver.faults();
    for (const QString &fault : faults) {
        lines.append(QStringLiteral("fault ") + fault);
    }
    return ConsoleResult::done(lines);
}

} // namespace

void addReceiverCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator,
                {
                    {"receiver", Console::Place::AnyThread, Effect::None, receiver},
                });
}

} // namespace simulator
