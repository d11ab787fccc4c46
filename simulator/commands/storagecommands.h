#pragma once

namespace simulator
{

class Console;
class Simulator;

/// Sticks that are plugged and pulled.
void addStorageCommands(Console &console, Simulator &simulator);

} // namespace simulator
