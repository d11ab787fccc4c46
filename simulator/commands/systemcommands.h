#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The DAB tuner and the modules' versions.
void addSystemCommands(Console &console, Simulator &simulator);

} // namespace simulator
