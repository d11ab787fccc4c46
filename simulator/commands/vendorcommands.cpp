#include "vendorcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "simulator/simulator.h"

#include "hardware/unit.h"

namespace simulator
{

namespace
{

const int highestPosition = 255;

/// A fault that a device can have, by the name that people give it.
struct Fault
{
    const char *name;
    void (*set)(hardware::Unit &unit, bool on);
};

const Fault vendorFaults[] = {
    {"lookup", [](hardware::Unit &unit, bool on) { unit.vendorData().refuseLookUps(on); }},
    {"write", [](hardware::Unit &unit, bool on) { unit.vendorData().refuseWrites(on); }},
};

const Fault updateFaults[] = {
    {"silent", [](hardware::Unit &unit, bool on) { unit.userUpdate().setSilent(on); }},
    {"no-data", [](hardware::Unit &unit, bool on) { unit.userUpdate().refuseData(on); }},
};

bool readSwitch(const QString &word, bool *on, QString *error)
{
    *on = word == QLatin1String("on");
    *error = QStringLiteral("a fault is \"on\" or \"off\", not \"%1\"").arg(word);
    return *on || word == QLatin1String("off");
}

template <std::size_t count>
ConsoleResult setFault(const Fault (&faults)[count], Simulator &simulator,
                       const QStringList &arguments)
{
    bool on = false;
    QString error;
    if (!readSwitch(arguments.at(1), &on, &error)) {
        return ConsoleResult::failed(error);
    }
    QStringList names;
    for (const Fault &fault : faults) {
        if (arguments.first() == QLatin1String(fault.name)) {
            fault.set(simulator.unit(), on);
            return ConsoleResult::done();
        }
        names.append(QString::fromLatin1(fault.name));
    }
    return ConsoleResult::failed(QStringLiteral("there is no fault \"%1\"; there are: %2")
                                     .arg(arguments.first(), names.join(QStringLiteral(", "))));
}

ConsoleResult vendor(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    int position = 0;
    QString error;
    if (!readNumber(arguments.first(), QStringLiteral("POSITION"), 0, highestPosition, &position,
                    &error)) {
        return ConsoleResult::failed(error);
    }
    const QByteArray bytes = simulator.unit().vendorData().item(position);
    return bytes.isEmpty() ? ConsoleResult::failed(
               QStringLiteral("the vendor data has nothing at position %1").arg(position))
                           : ConsoleResult::done({QString::fromLatin1(bytes.toHex(' ').toUpper())});
}

ConsoleResult vendorFault(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    return setFault(vendorFaults, simulator, arguments);
}

ConsoleResult updateFault(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    return setFault(updateFaults, simulator, arguments);
}

} // namespace

void addVendorCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"vendor", "POSITION",
                     "Says the bytes of the vendor data's item at that position, in hexadecimal.",
                     place, vendor},
                    {"vendor-fault", "FAULT on|off",
                     "The vendor data refuses to say where an item is (lookup), or to be written "
                     "(write).",
                     place, vendorFault},
                    {"update-fault", "FAULT on|off",
                     "The update service never ends a check (silent), or has no data for an update "
                     "(no-data).",
                     place, updateFault},
                });
}

} // namespace simulator
