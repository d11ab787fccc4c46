#pragma once

namespace simulator
{

class Console;
class Simulator;

/// What a finger does: press, tap, hold, lift and drag on the screen, and the hard keys.
void addTouchCommands(Console &console, Simulator &simulator);

} // namespace simulator
