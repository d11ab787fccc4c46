#include "allcommands.h"

#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

namespace simulator
{

namespace
{

ConsoleResult usb(Simulator &simulator, const QStringList &, ConsoleSession &)
{
    return ConsoleResult::done(simulator.unit().usbPorts().description());
}

} // namespace

void addUsbCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator,
                {
                    {"usb", Console::Place::AnyThread, usb},
                });
}

} // namespace simulator
