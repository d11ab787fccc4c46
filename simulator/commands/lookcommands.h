#pragma once

namespace simulator
{

class Console;
class Simulator;

/// What a person sees: texts and buttons on the screen, and pictures of it.
void addLookCommands(Console &console, Simulator &simulator);

} // namespace simulator
