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

void addCommands(Console &console, Simulator &simulator, std::initializer_list<CommandRow> table);

} // namespace simulator
