#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The commands of all areas, each of which has a source of its own.
void addAllCommands(Console &console, Simulator &simulator);

/// What a finger does: press, tap, hold, lift and drag on the screen, and the hard keys.
void addTouchCommands(Console &console, Simulator &simulator);
/// What a person sees: texts and buttons on the screen, and pictures of it.
void addLookCommands(Console &console, Simulator &simulator);
/// What touches lead to.
void addEffectCommands(Console &console, Simulator &simulator);
/// Calls of the plug-in's that are to fail.
void addFaultCommands(Console &console, Simulator &simulator);
/// Reading the journal and waiting for its lines.
void addJournalCommands(Console &console, Simulator &simulator);
/// The unit as a whole: its time, its power and the program that plays it.
void addUnitCommands(Console &console, Simulator &simulator);
/// Sticks that are plugged and pulled.
void addStorageCommands(Console &console, Simulator &simulator);
/// Packages that are put on sticks.
void addPackageCommands(Console &console, Simulator &simulator);
/// The unit's settings store.
void addSettingCommands(Console &console, Simulator &simulator);
/// Light that falls on the unit and light that it gives: light sensor, panel and key light.
void addLightCommands(Console &console, Simulator &simulator);
/// The physical memory with its named registers, and the USB PHY behind them.
void addMemoryCommands(Console &console, Simulator &simulator);
/// The throughput tests over the USB network link.
void addNcmCommands(Console &console, Simulator &simulator);
/// The GPS receiver and what goes wrong with it.
void addReceiverCommands(Console &console, Simulator &simulator);
/// Commands that run others, and names for values.
void addScriptCommands(Console &console);
/// What is recorded of a session, and reports of it.
void addSessionCommands(Console &console, Simulator &simulator);
/// The DAB tuner and the modules' versions.
void addSystemCommands(Console &console, Simulator &simulator);
/// The state of the whole unit, for programs.
void addStateCommands(Console &console, Simulator &simulator);
/// The unit's USB ports.
void addUsbCommands(Console &console, Simulator &simulator);
/// The unit's vendor data and the updates that are handed over through it.
void addVendorCommands(Console &console, Simulator &simulator);

} // namespace simulator
