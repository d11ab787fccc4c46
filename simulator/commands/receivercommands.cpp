#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

ConsoleResult state(hardware::GpsReceiver &receiver)
{
    QStringList lines(receiver.state());
    const QStringList faults = receiver.faults();
    for (const QString &fault : faults) {
        lines.append(QStringLiteral("fault ") + fault);
    }
    return ConsoleResult::done(lines);
}

ConsoleResult addFault(hardware::GpsReceiver &receiver, const QStringList &words)
{
    QString error;
    return receiver.addFault(words, &error) ? ConsoleResult::done() : ConsoleResult::failed(error);
}

ConsoleResult receiver(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    hardware::GpsReceiver &receiver = simulator.unit().gpsReceiver();
    const QString action = arguments.value(0);
    if (arguments.isEmpty()) {
        return state(receiver);
    }
    if (action == QLatin1String("fault") && arguments.size() > 1) {
        return addFault(receiver, arguments.mid(1));
    }
    if (action == QLatin1String("faults") && arguments.size() == 1) {
        return ConsoleResult::done(hardware::ReceiverFaults::help());
    }
    if (action == QLatin1String("repair") && arguments.size() == 1) {
        receiver.clearFaults();
        return ConsoleResult::done();
    }
    return ConsoleResult::failed(QStringLiteral(
        "usage: receiver, receiver fault NAME [A] [B] [C], receiver faults, or receiver repair"));
}

} // namespace

void addReceiverCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator,
                {
                    {"receiver", Console::Place::AnyThread, receiver},
                });
}

} // namespace simulator
