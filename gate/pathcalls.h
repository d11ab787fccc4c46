#pragma once

// How the C library's calls that take a path, as the whole process makes them while a gate is open,
// lead it and pass the call on. "…64", "__…_2" and "__…_chk" are what the plain names become in
// code that is compiled for large files or with checks of buffers.

#include "hostcall.h"
#include "mappedpath.h"
#include "unitcall.h"

#include <type_traits>

namespace hardware
{

template <typename Result> Result failure()
{
    if constexpr (std::is_pointer_v<Result>) {
        return nullptr;
    } else {
        return -1;
    }
}

/// Makes a call unless it is to fail, and tells of it.
template <typename Make> auto passOn(const UnitCall &call, const Make &make)
{
    using Result = decltype(make());
    const Result result = call.mustFail() ? failure<Result>() : make();
    call.tell(result == failure<Result>());
    return result;
}

template <auto *Call, typename... Others>
auto withPath(const char *name, const char *path, Others... others)
{
    const MappedPath mapped(path);
    using Result = decltype(Call(path, others...));
    if (!mapped.isValid()) {
        return failure<Result>();
    }
    return passOn(UnitCall(name, mapped.unitPath()),
                  [&] { return hostCall<Call>(name)(mapped.path(), others...); });
}

template <auto *Call, typename... Others>
auto withPathAt(const char *name, int folder, const char *path, Others... others)
{
    const MappedPath mapped(path);
    using Result = decltype(Call(folder, path, others...));
    if (!mapped.isValid()) {
        return failure<Result>();
    }
    return passOn(UnitCall(name, mapped.unitPath()),
                  [&] { return hostCall<Call>(name)(folder, mapped.path(), others...); });
}

/// A call on two paths, with a line if the first one is the unit's.
inline UnitCall callOnTwo(const char *name, const MappedPath &from, const char *to)
{
    return UnitCall(name, from.unitPath(), to == nullptr ? "NULL" : '"' + std::string(to) + '"');
}

template <auto *Call> int withPaths(const char *name, const char *from, const char *to)
{
    const MappedPath mappedFrom(from);
    const MappedPath mappedTo(to);
    if (!mappedFrom.isValid() || !mappedTo.isValid()) {
        return -1;
    }
    return passOn(callOnTwo(name, mappedFrom, to),
                  [&] { return hostCall<Call>(name)(mappedFrom.path(), mappedTo.path()); });
}

template <auto *Call, typename... Others>
int withPathsAt(const char *name, int fromFolder, const char *from, int toFolder, const char *to,
                Others... others)
{
    const MappedPath mappedFrom(from);
    const MappedPath mappedTo(to);
    if (!mappedFrom.isValid() || !mappedTo.isValid()) {
        return -1;
    }
    return passOn(callOnTwo(name, mappedFrom, to), [&] {
        return hostCall<Call>(name)(fromFolder, mappedFrom.path(), toFolder, mappedTo.path(),
                                    others...);
    });
}

} // namespace hardware
