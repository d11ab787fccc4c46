#pragma once

#include "hostcall.h"

#include <string>

namespace hardware
{

/// How a call is to fail that somebody wants to.
enum class Failure {
    None,
    Error, ///< errno says with what
    Short  ///< it does half of what it is asked for
};

/// Of the call with this text, or of one with this \a name on a descriptor of the unit's: "read
/// /dev/ttyS3". Every other one, and one of a thread with GateBypass, has none. Keeps errno where
/// it does not set it.
Failure failureOf(const std::string &call);
Failure failureOf(const char *name, int descriptor);

/// Makes a call on a descriptor unless it is to fail, which gives -1.
template <auto *Call, typename... Others>
auto onDescriptor(const char *name, int descriptor, Others... others)
{
    using Result = decltype(Call(descriptor, others...));
    return failureOf(name, descriptor) == Failure::Error
        ? Result(-1)
        : hostCall<Call>(name)(descriptor, others...);
}

/// Half of the items that a call is asked for, where it is to do less, but never none.
inline std::size_t asked(Failure failure, std::size_t count)
{
    return failure == Failure::Short ? (count + 1) / 2 : count;
}

} // namespace hardware
