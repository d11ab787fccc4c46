#pragma once

#include "faultdevices.h"

namespace hardware
{
class CallFaults;
}

namespace simulator
{

/// "call": calls of the plug-in's that are to fail.
FaultDevice faultyCalls(hardware::CallFaults &faults);

} // namespace simulator
