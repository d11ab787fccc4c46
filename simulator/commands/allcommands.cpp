#include "allcommands.h"

#include "simulator/console/console.h"
#include "simulator/simulator.h"

namespace simulator
{

void addAllCommands(Console &console, Simulator &simulator)
{
    console.setListener(
        [&simulator](const QStringList &words) { simulator.recorder().noteCommand(words); });
    addTouchCommands(console, simulator);
    addLookCommands(console, simulator);
    addEffectCommands(console, simulator);
    addFaultCommands(console, simulator);
    addJournalCommands(console, simulator);
    addUnitCommands(console, simulator);
    addStorageCommands(console, simulator);
    addPackageCommands(console, simulator);
    addSettingCommands(console, simulator);
    addLightCommands(console, simulator);
    addMemoryCommands(console, simulator);
    addNcmCommands(console, simulator);
    addReceiverCommands(console, simulator);
    addScriptCommands(console);
    addSessionCommands(console, simulator);
    addSystemCommands(console, simulator);
    addStateCommands(console, simulator);
    addUsbCommands(console, simulator);
    addVendorCommands(console, simulator);
}

} // namespace simulator
