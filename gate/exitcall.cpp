// The C library's exit(), as the plug-in calls it while a gate is open: what it has printed is
// there, and the process ends at once. Otherwise it would destroy what the simulated unit's other
// threads, which a unit does not have, are at work with.

#include "gate.h"
#include "hostcall.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

using hardware::Gate;
using hardware::hostCall;

extern "C" {

void exit(int status) noexcept
{
    if (Gate::current() != nullptr) {
        std::fflush(nullptr);
        _exit(status);
    }
    hostCall<::exit>(__func__)(status);
    std::abort(); // not reached, which the call through a pointer does not tell
}

} // extern "C"
