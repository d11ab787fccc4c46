#pragma once

#include <QString>

/// What this process asked sched_setscheduler() for last, as "<process> <policy> <priority>".
/// Nothing is handed on: a test's rights are not those of every host.
class RecordedPriority
{
public:
    static QString asked();

    /// Forgets it, and grants or refuses what is asked from now on.
    static void restart(bool isGranted = true);
};
