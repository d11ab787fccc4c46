#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

const int lastPosition = 255;

ConsoleResult vendor(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    int position = 0;
    QString error;
    if (!readNumber(arguments.first(), QStringLiteral("POSITION"), 0, lastPosition, &position,
                    &error)) {
        return ConsoleResult::failed(error);
    }
    const QByteArray item = simulator.unit().vendorData().item(position);
    return item.isEmpty()
        ? ConsoleResult::failed(QStringLiteral("nothing has position %1").arg(position))
        : ConsoleResult::done({QString::fromLatin1(item.toHex(' ').toUpper())});
}

ConsoleResult vendorFault(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    const QString &fault = arguments.first();
    const bool lookUps = fault == QLatin1String("look-up");
    const bool writes = fault == QLatin1String("write");
    if (!lookUps && !writes && fault != QLatin1String("none")) {
        return ConsoleResult::failed(
            QStringLiteral("FAULT is look-up, write or none, not \"%1\"").arg(fault));
    }
    simulator.unit().vendorData().refuseLookUps(lookUps);
    simulator.unit().vendorData().refuseWrites(writes);
    return ConsoleResult::done();
}

ConsoleResult updateFault(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    const QString &fault = arguments.first();
    const bool silent = fault == QLatin1String("silent");
    const bool noData = fault == QLatin1String("no-data");
    if (!silent && !noData && fault != QLatin1String("none")) {
        return ConsoleResult::failed(
            QStringLiteral("FAULT is silent, no-data or none, not \"%1\"").arg(fault));
    }
    simulator.unit().userUpdate().setSilent(silent);
    simulator.unit().userUpdate().refuseData(noData);
    return ConsoleResult::done();
}

} // namespace

void addVendorCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"vendor", place, vendor},
                    {"vendor-fault", place, vendorFault},
                    {"update-fault", place, updateFault},
                });
}

} // namespace simulator
