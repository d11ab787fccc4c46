#pragma once

#include "kvglobal/kvglobal.h"

#include <functional>
#include <memory>
#include <typeindex>

namespace hardware
{
class Unit;
}

namespace unitlink
{

/// Names the unit that the stand-in libraries of this process reach, for as long as it lives. The
/// services that they make for it go with it.
class KV_API SimulatedUnit
{
public:
    explicit SimulatedUnit(hardware::Unit &unit);
    ~SimulatedUnit();
    SimulatedUnit(const SimulatedUnit &) = delete;
    SimulatedUnit &operator=(const SimulatedUnit &) = delete;
};

/// The unit named by the living SimulatedUnit; ends the process with a message when there is none,
/// since a stand-in without a unit cannot answer. Any thread.
KV_API hardware::Unit &unit();

/// Whether there is one.
KV_API bool isLinked();

/// Host milliseconds that \a unitMs milliseconds of the unit last; the same number without a unit.
KV_API int hostMs(int unitMs);

/// The service of that type that belongs to the unit, made by \a make when it is first asked for.
KV_API void *serviceOf(std::type_index type, const std::function<std::shared_ptr<void>()> &make);

/// The unit's one object of a service class, whose constructor only \a make can reach. Any thread.
template <typename Service, typename Make> Service *service(Make make)
{
    return static_cast<Service *>(serviceOf(typeid(Service), [&make] {
        return std::shared_ptr<void>(make(),
                                     [](void *object) { delete static_cast<Service *>(object); });
    }));
}

} // namespace unitlink
