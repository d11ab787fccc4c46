#pragma once

#include "simulator/console/console.h"

#include <initializer_list>

namespace simulator
{

class Simulator;

using Effect = Console::Effect;

/// A row in the table of commands that each area has: a verb of verbTable(), and what does it.
struct CommandRow
{
    const char *name;
    Console::Place place;
    Effect effect;
    ConsoleResult (*function)(Simulator &simulator, const QStringList &arguments,
                              ConsoleSession &session);
};

/// Host milliseconds for which a command waits that waits for \a unitMs of the unit: two seconds at
/// least, since the host's work is what it waits for just as often.
int patienceMs(Simulator &simulator, int unitMs);

/// Reads for how many milliseconds of the unit a command is to wait, and says what that is on the
/// host: who gives a \a word means it, an empty one stands for patienceMs() of \a unitMs. False
/// with a sentence in \a error.
bool readWait(Simulator &simulator, const QString &word, int *unitMs, int *hostMs, QString *error);

void addCommands(Console &console, Simulator &simulator, std::initializer_list<CommandRow> table);

} // namespace simulator
