#pragma once

namespace simulator
{

class Console;

/// A command that runs another one again and again.
void addRepeatCommand(Console &console);

} // namespace simulator
