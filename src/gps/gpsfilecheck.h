#pragma once

/// Checks both package files, and prints what it finds to the standard output: 0 when both are
/// valid, -2 when not. Gives the calling thread real-time priority, for good, and measures how
/// precisely select() waits.
int checkGpsUpdateFile(const char *bootloaderPath, const char *firmwarePath);
