#pragma once

// How the C library's calls that take a path, as the whole process makes them while a gate is open,
// lead it and pass the call on. "…64", "__…_2" and "__…_chk" are what the plain names become in
// code that is compiled for large files or with checks of buffers.

#include "hostcall.h"
#include "mappedpath.h"

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

template <auto *Call, typename... Others>
auto withPath(const char *name, const char *path, Others... others)
{
    const MappedPath mapped(path);
    using Result = decltype(Call(path, others...));
    return mapped.isValid() ? hostCall<Call>(name)(mapped.path(), others...) : failure<Result>();
}

template <auto *Call, typename... Others>
auto withPathAt(const char *name, int folder, const char *path, Others... others)
{
    const MappedPath mapped(path);
    using Result = decltype(Call(folder, path, others...));
    return mapped.isValid() ? hostCall<Call>(name)(folder, mapped.path(), others...)
                            : failure<Result>();
}

template <auto *Call> int withPaths(const char *name, const char *from, const char *to)
{
    const MappedPath mappedFrom(from);
    const MappedPath mappedTo(to);
    return mappedFrom.isValid() && mappedTo.isValid()
        ? hostCall<Call>(name)(mappedFrom.path(), mappedTo.path())
        : -1;
}

template <auto *Call, typename... Others>
int withPathsAt(const char *name, int fromFolder, const char *from, int toFolder, const char *to,
                Others... others)
{
    const MappedPath mappedFrom(from);
    const MappedPath mappedTo(to);
    return mappedFrom.isValid() && mappedTo.isValid()
        ? hostCall<Call>(name)(fromFolder, mappedFrom.path(), toFolder, mappedTo.path(), others...)
        : -1;
}

} // namespace hardware
