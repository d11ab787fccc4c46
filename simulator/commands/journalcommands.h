#pragma once

namespace simulator
{

class Console;
class Simulator;

/// Reading the journal and waiting for its lines.
void addJournalCommands(Console &console, Simulator &simulator);

} // namespace simulator
