#pragma once

/// Runs a command by the shell and waits for its end. What it answers is not looked at.
void runCommand(const char *command);
