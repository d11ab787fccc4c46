#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

const QLatin1String on("on");
const QLatin1String off("off");

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

ConsoleResult wire(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    hardware::GpsReceiver &receiver = simulator.unit().gpsReceiver();
    if (arguments.isEmpty()) {
        return ConsoleResult::done({receiver.showsWire() ? on : off});
    }
    const QString &word = arguments.first();
    if (word != on && word != off) {
        return ConsoleResult::failed(QStringLiteral("\"%1\" is neither on nor off").arg(word));
    }
    receiver.showWire(word == on);
    return ConsoleResult::done();
}

} // namespace

void addReceiverCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator,
                {
                    {"receiver", Console::Place::AnyThread, Effect::None, receiver},
                    {"wire", Console::Place::AnyThread, Effect::World, wire},
                });
}

} // namespace simulator
