#pragma once

#include "kvglobal/kvglobal.h"

/// Writes a line to the system's log: \a level such as "INFO", \a tag the writer's name, \a format
/// and what follows as for printf(). Any thread.
KV_API void printLogEx(const char *level, const char *tag, const char *format, ...)
    __attribute__((format(printf, 3, 4)));
