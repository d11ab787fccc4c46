#include "allcommands.h"

#include "journalcommands.h"
#include "lightcommands.h"
#include "lookcommands.h"
#include "repeatcommand.h"
#include "memorycommands.h"
#include "ncmcommands.h"
#include "receivercommands.h"
#include "settingcommands.h"
#include "storagecommands.h"
#include "touchcommands.h"
#include "unitcommands.h"
#include "usbcommands.h"
#include "vendorcommands.h"

namespace simulator
{

void addAllCommands(Console &console, Simulator &simulator)
{
    addTouchCommands(console, simulator);
    addLookCommands(console, simulator);
    addJournalCommands(console, simulator);
    addStorageCommands(console, simulator);
    addSettingCommands(console, simulator);
    addLightCommands(console, simulator);
    addVendorCommands(console, simulator);
    addMemoryCommands(console, simulator);
    addNcmCommands(console, simulator);
    addReceiverCommands(console, simulator);
    addUnitCommands(console, simulator);
    addUsbCommands(console, simulator);
    addRepeatCommand(console);
}

} // namespace simulator
