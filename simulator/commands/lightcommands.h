#pragma once

namespace simulator
{

class Console;
class Simulator;

/// Light that falls on the unit and light that it gives: light sensor, panel and key light.
void addLightCommands(Console &console, Simulator &simulator);

} // namespace simulator
