#pragma once

#include <QByteArray>

#include <functional>

/// What came of something that talks over the receiver's line.
struct Conversation
{
    int result;
    QByteArray output; ///< on the standard output
    double seconds;    ///< of the unit's time
    int filesLeftOpen;
};

/// Runs it; \a talk gives its result.
Conversation converse(const std::function<int()> &talk);

/// Seconds of the clock that the code under test reads, with the gate's time factor.
double unitTime();

/// How many files and devices this process has open. What its threads open for themselves while
/// they start, which may be at any time, does not count.
int openFiles();
