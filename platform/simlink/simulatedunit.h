#pragma once

#include "kvglobal/kvglobal.h"

namespace hardware
{
class Unit;
}

namespace simlink
{

/// Names the unit that the stand-in libraries of this process reach, for as long as it lives.
class KV_API SimulatedUnit
{
public:
    explicit SimulatedUnit(hardware::Unit &unit);
    ~SimulatedUnit();
    SimulatedUnit(const SimulatedUnit &) = delete;
    SimulatedUnit &operator=(const SimulatedUnit &) = delete;
};

/// The unit named by the living SimulatedUnit; ends the process with a message when there
/// is none, since a stand-in without a unit cannot answer.
KV_API hardware::Unit &unit();

} // namespace simlink
