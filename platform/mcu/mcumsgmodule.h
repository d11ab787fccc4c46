#pragma once

#include "kvglobal/kvglobal.h"

/// The raw channel to the unit's microcontroller.
class KV_API McuMsgModule
{
public:
    /// Sends \a length bytes as they are; the number of bytes sent, or -1. Any thread.
    static int sendMsgToMcu(unsigned char *buffer, int length);
};
