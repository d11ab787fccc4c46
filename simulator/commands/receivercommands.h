#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The GPS receiver and what goes wrong with it.
void addReceiverCommands(Console &console, Simulator &simulator);

} // namespace simulator
