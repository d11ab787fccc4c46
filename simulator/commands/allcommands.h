#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The commands of all areas.
void addAllCommands(Console &console, Simulator &simulator);

} // namespace simulator
