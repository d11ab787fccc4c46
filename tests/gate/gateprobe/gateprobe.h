#pragma once

#include <cstddef>
#include <ctime>

struct timeval;

/// A library call on a path, made from inside the module.
struct ProbeCall
{
    enum Kind {
        Reads,         ///< looks at the file \a path, whose content must be "known"
        Enters,        ///< looks at the folder \a path
        Makes,         ///< makes \a path
        Changes,       ///< alters the file \a path
        Removes,       ///< takes the file \a path away
        RemovesFolder, ///< takes the empty folder \a path away
        Joins          ///< makes the name \a other of the file \a path
    };

    const char *name;
    Kind kind;
    /// 0, or the errno that the call left.
    int (*run)(const char *path, const char *other);
};

/// What a module that was loaded at run time does by way of the C library.
struct GateProbe
{
    const ProbeCall *calls;
    std::size_t count;

    int (*system)(const char *command);
    unsigned int (*sleep)(unsigned int seconds);
    int (*usleep)(unsigned int microseconds);
    int (*nanosleep)(const timespec *duration, timespec *remaining);
    /// Waits for a byte from the descriptor.
    int (*select)(int descriptor, timeval *timeout);
    int (*gettimeofday)(timeval *time);
};

extern "C" const GateProbe *gateProbe();
