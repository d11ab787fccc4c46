#pragma once

namespace hardware
{

/// While one lives, the calling thread's file calls see the host, also where a gate would lead
/// them into the unit: for the simulator's own work on files that the user named, which may well
/// lie below the host's /media. Nests.
class GateBypass
{
public:
    GateBypass();
    ~GateBypass();
    GateBypass(const GateBypass &) = delete;
    GateBypass &operator=(const GateBypass &) = delete;

    /// Whether the calling thread has host access.
    static bool isActive();
};

} // namespace hardware
