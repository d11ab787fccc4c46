#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The unit's USB ports.
void addUsbCommands(Console &console, Simulator &simulator);

} // namespace simulator
