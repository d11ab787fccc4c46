#pragma once

#include "faultdevices.h"

namespace hardware
{
class CallFaults;
}

namespace simulator
{

/// "call": calls of the plug-in's, each of which fails once.
FaultDevice faultyCalls(hardware::CallFaults &faults);

} // namespace simulator
