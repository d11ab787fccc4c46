#include "allcommands.h"

#include "commandtable.h"
#include "faultdevices.h"

#include "simulator/console/nearest.h"
#include "simulator/simulator.h"

#include <algorithm>

namespace simulator
{

namespace
{

const QLatin1String none("none");

// In characters, by the longest.
const int nameWidth = 8;
const int wordsWidth = 25;

QStringList behind(const QString &name, const QStringList &lines)
{
    QStringList named;
    for (const QString &line : lines) {
        named.append(QStringLiteral("  %1 %2").arg(name, line));
    }
    return named;
}

/// In columns. Calls are many, and listed only for who asks for them.
QStringList possible(const FaultDevice &device, bool isAsked)
{
    const bool isShort = device.name == QLatin1String("call") && !isAsked;
    const QString calls =
        QStringLiteral("the next such call of the plug-in's fails, or the N-th, or "
                       "all from then on; \"fault call\" lists them");
    return behind(device.name.leftJustified(nameWidth),
                  isShort ? QStringList(
                      QStringLiteral("CALL [N] [FAILURE] [on]").leftJustified(wordsWidth) + calls)
                          : device.possible());
}

ConsoleResult list(const QList<FaultDevice> &devices)
{
    QStringList can(QStringLiteral("What can fail:"));
    QStringList does(QStringLiteral("What does:"));
    for (const FaultDevice &device : devices) {
        can += possible(device, devices.size() == 1);
        does += behind(device.name, device.present());
    }
    return ConsoleResult::done(can + does);
}

ConsoleResult unknownDevice(const QList<FaultDevice> &devices, const QString &name)
{
    QStringList names;
    for (const FaultDevice &device : devices) {
        names.append(device.name);
    }
    return ConsoleResult::failed(QStringLiteral("there is no device \"%1\", only: %2")
                                     .arg(name, names.join(QLatin1String(", ")))
                                 + nearHint(name, names));
}

ConsoleResult set(const FaultDevice &device, const QStringList &words)
{
    if (words == QStringList(none)) {
        device.clear();
        return ConsoleResult::done();
    }
    QString error;
    return device.set(words, &error) ? ConsoleResult::done() : ConsoleResult::failed(error);
}

ConsoleResult fault(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    const QList<FaultDevice> devices = faultDevices(simulator.unit());
    if (arguments.isEmpty()) {
        return list(devices);
    }
    if (arguments == QStringList(none)) {
        for (const FaultDevice &device : devices) {
            device.clear();
        }
        return ConsoleResult::done();
    }
    const auto device =
        std::find_if(devices.cbegin(), devices.cend(), [&arguments](const FaultDevice &device) {
            return device.name == arguments.first();
        });
    if (device == devices.cend()) {
        return unknownDevice(devices, arguments.first());
    }
    return arguments.size() == 1 ? list({*device}) : set(*device, arguments.mid(1));
}

} // namespace

void addFaultCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator, {{"fault", Console::Place::AnyThread, Effect::World, fault}});
}

} // namespace simulator
