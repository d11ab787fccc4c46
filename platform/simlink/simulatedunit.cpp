#include "simulatedunit.h"

#include <QtGlobal>

#include <atomic>

namespace simlink
{

namespace
{
std::atomic<hardware::Unit *> linkedUnit{nullptr};
}

SimulatedUnit::SimulatedUnit(hardware::Unit &unit)
{
    linkedUnit = &unit;
}

SimulatedUnit::~SimulatedUnit()
{
    linkedUnit = nullptr;
}

hardware::Unit &unit()
{
    hardware::Unit *linked = linkedUnit;
    if (linked == nullptr) {
        qFatal("A stand-in library was called before a simulated unit was named.");
    }
    return *linked;
}

} // namespace simlink
