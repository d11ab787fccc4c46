#pragma once

#include "kvglobal/kvglobal.h"

/// The service that reads positions from the GPS receiver. Graphical thread only.
class KV_API CGpsModule
{
public:
    static CGpsModule *getInstance();

    /// Stops reading and lets go of the receiver's serial line, until the unit restarts.
    void stopWork();

    /// Clears what the receiver has learnt: it starts cold after the next restart.
    void clearGpsConfig();

private:
    CGpsModule();
};
