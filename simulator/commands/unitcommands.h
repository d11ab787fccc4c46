#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The unit as a whole: its time, its power and the program that plays it.
void addUnitCommands(Console &console, Simulator &simulator);

} // namespace simulator
