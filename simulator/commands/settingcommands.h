#pragma once

namespace simulator
{

class Console;
class Simulator;

/// The unit's settings store.
void addSettingCommands(Console &console, Simulator &simulator);

} // namespace simulator
