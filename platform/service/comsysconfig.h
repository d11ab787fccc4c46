#pragma once

#include "kvglobal/kvglobal.h"

/// Switches of the whole system. Graphical thread only.
class KV_API ComSysConfig
{
public:
    static ComSysConfig *getInstance();

    /// Whether the screen-capture function is on; kept across restarts, off at first.
    bool getCaptureStatus();
    void setCaptureStatus(bool on);

private:
    ComSysConfig();
};
