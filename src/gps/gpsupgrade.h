#pragma once

/// Replaces the GPS receiver's boot loader and firmware over its serial line, and prints what
/// happens to the standard output. Blocks the calling thread for minutes. 0 when the receiver runs
/// its new firmware; -3 when its boot loader, -4 when its firmware could not be replaced; -5 when
/// the line cannot be opened. A line that fails on the way ends the process, see deal_read().
int upgradeStart(const char *bootloaderPath, const char *firmwarePath);
