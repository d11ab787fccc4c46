#pragma once

#include <cstddef>

/// True when the shell takes every byte of \a path as it is: nothing in it separates words, quotes
/// or expands.
bool isPlainForShell(const char *path);

/// Zeroes \a buffer of \a size bytes and writes \a format into it, with \a path for its "%s".
/// False, with the buffer zeroed again, when the result does not fit.
bool formatCommand(char *buffer, std::size_t size, const char *format, const char *path);

/// The same for a format with two "%s".
bool formatCommand(char *buffer, std::size_t size, const char *format, const char *source,
                   const char *path);
