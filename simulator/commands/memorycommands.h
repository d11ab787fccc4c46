#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The physical memory with its named registers, and the USB PHY behind them.
void addMemoryCommands(Console &console, Simulator &simulator);

} // namespace simulator
