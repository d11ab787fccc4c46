#pragma once

// Replaces the GPS receiver's boot loader and firmware over its serial line. What happens is
// printed to the standard output. Blocks the calling thread, the upgrade for minutes.

/// Checks both package files: 0 when both are valid, -2 when not. Gives the calling thread
/// real-time priority, for good, and measures how precisely select() waits.
int checkGpsUpdateFile(const char *bootloaderPath, const char *firmwarePath);

/// The whole upgrade. 0 when the receiver runs its new firmware; -3 when its boot loader, -4 when
/// its firmware could not be replaced; -5 when the line cannot be opened. A line that fails on the
/// way ends the process, see deal_read().
int upgradeStart(const char *bootloaderPath, const char *firmwarePath);
