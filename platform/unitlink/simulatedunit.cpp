#include "simulatedunit.h"

#include "hardware/unit/unit.h"

#include <atomic>
#include <map>
#include <mutex>

namespace unitlink
{

namespace
{

std::atomic<hardware::Unit *> linkedUnit{nullptr};
std::recursive_mutex servicesMutex; // A service may be made of others.

using Services = std::map<std::type_index, std::shared_ptr<void>>;

Services &services()
{
    static Services made;
    return made;
}

} // namespace

SimulatedUnit::SimulatedUnit(hardware::Unit &unit)
{
    linkedUnit = &unit;
}

SimulatedUnit::~SimulatedUnit()
{
    const std::lock_guard<std::recursive_mutex> lock(servicesMutex);
    services().clear();
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

bool isLinked()
{
    return linkedUnit != nullptr;
}

int hostMs(int unitMs)
{
    const hardware::Unit *linked = linkedUnit;
    return linked == nullptr ? unitMs : linked->clock().hostMs(unitMs);
}

void *serviceOf(std::type_index type, const std::function<std::shared_ptr<void>()> &make)
{
    const std::lock_guard<std::recursive_mutex> lock(servicesMutex);
    const auto known = services().find(type);
    if (known != services().end()) {
        return known->second.get();
    }
    std::shared_ptr<void> made = make();
    return services().emplace(type, std::move(made)).first->second.get();
}

} // namespace unitlink
