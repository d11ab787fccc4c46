#include "allcommands.h"

#include "journalcommands.h"
#include "lookcommands.h"
#include "settingcommands.h"
#include "storagecommands.h"
#include "systemcommands.h"
#include "touchcommands.h"
#include "unitcommands.h"

namespace simulator
{

void addAllCommands(Console &console, Simulator &simulator)
{
    addTouchCommands(console, simulator);
    addLookCommands(console, simulator);
    addJournalCommands(console, simulator);
    addStorageCommands(console, simulator);
    addSettingCommands(console, simulator);
    addSystemCommands(console, simulator);
    addUnitCommands(console, simulator);
}

} // namespace simulator
