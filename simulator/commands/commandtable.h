#pragma once

#include "simulator/console/console.h"

#include <initializer_list>

namespace simulator
{

class Simulator;

/// A row in the table of commands that each area has; the texts are those of Console::Command.
struct CommandRow
{
    const char *name;
    const char *usage;
    const char *help;
    Console::Place place;
    ConsoleResult (*function)(Simulator &simulator, const QStringList &arguments,
                              ConsoleSession &session);
};

/// Host milliseconds for which a command waits that waits for \a unitMs of the unit: two seconds at
/// least, since the host's work is what it waits for just as often.
int patienceMs(Simulator &simulator, int unitMs);

void addCommands(Console &console, Simulator &simulator, std::initializer_list<CommandRow> table);

} // namespace simulator
