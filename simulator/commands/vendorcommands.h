#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The unit's vendor data and the updates that are handed over through it.
void addVendorCommands(Console &console, Simulator &simulator);

} // namespace simulator
