#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The throughput tests over the USB network link.
void addNcmCommands(Console &console, Simulator &simulator);

} // namespace simulator
