#pragma once

#include <QtGlobal>

namespace hardware
{

/// What a throughput test moved so far.
struct NcmFigures
{
    qint64 bytesSent = 0;
    qint64 bytesReceived = 0;
    qint64 datagramsLost = 0; ///< of those that are known to be missing; UDP only
    double seconds = 0;       ///< of the unit's time

    /// What was received, in millions of bits a second.
    double megabits() const { return seconds > 0 ? bytesReceived * 8 / seconds / 1e6 : 0; }
};

} // namespace hardware
