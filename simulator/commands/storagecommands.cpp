#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

#include <limits>

namespace simulator
{

namespace
{

using hardware::StickTrait;

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

ConsoleResult setTrait(Simulator &simulator, const QString &slot, StickTrait trait, int value)
{
    QString error;
    return simulator.unit().storage().setTrait(slot, trait, value, &error)
        ? ConsoleResult::done()
        : ConsoleResult::failed(error);
}

/// SLOT on|off
ConsoleResult switchTrait(Simulator &simulator, const QStringList &arguments, StickTrait trait)
{
    const int isOn =
        QStringList({QStringLiteral("off"), QStringLiteral("on")}).indexOf(arguments.at(1));
    return isOn < 0 ? ConsoleResult::failed(
               QStringLiteral("a stick's switch is on or off, not \"%1\"").arg(arguments.at(1)))
                    : setTrait(simulator, arguments.first(), trait, isOn);
}

ConsoleResult full(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    return switchTrait(simulator, arguments, StickTrait::Full);
}

ConsoleResult writeProtect(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    return switchTrait(simulator, arguments, StickTrait::WriteProtected);
}

ConsoleResult slow(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    int speed = 0;
    QString error;
    return readNumber(arguments.at(1), QStringLiteral("BYTES-PER-SECOND"), 0,
                      std::numeric_limits<int>::max(), &speed, &error)
        ? setTrait(simulator, arguments.first(), StickTrait::Slow, speed)
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
                    {"full", place, Effect::World, full},
                    {"write-protect", place, Effect::World, writeProtect},
                    {"slow", place, Effect::World, slow},
                });
}

} // namespace simulator
