#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The vendor data and its faults.
void addVendorCommands(Console &console, Simulator &simulator);

} // namespace simulator
