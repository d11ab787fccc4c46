#pragma once

// How the C library's calls that take a path, as the whole process makes them while a gate is open,
// lead it and pass the call on. "…64", "__…_2" and "__…_chk" are what the plain names become in
// code that is compiled for large files or with checks of buffers.

#include "hostcall.h"
#include "ledpath.h"

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
    const LedPath led(path);
    using Result = decltype(Call(path, others...));
    return led.isValid() ? hostCall<Call>(name)(led.path(), others...) : failure<Result>();
}

template <auto *Call, typename... Others>
auto withPathAt(const char *name, int folder, const char *path, Others... others)
{
    const LedPath led(path);
    using Result = decltype(Call(folder, path, others...));
    return led.isValid() ? hostCall<Call>(name)(folder, led.path(), others...) : failure<Result>();
}

template <auto *Call> int withPaths(const char *name, const char *from, const char *to)
{
    const LedPath ledFrom(from);
    const LedPath ledTo(to);
    return ledFrom.isValid() && ledTo.isValid() ? hostCall<Call>(name)(ledFrom.path(), ledTo.path())
                                                : -1;
}

template <auto *Call, typename... Others>
int withPathsAt(const char *name, int fromFolder, const char *from, int toFolder, const char *to,
                Others... others)
{
    const LedPath ledFrom(from);
    const LedPath ledTo(to);
    return ledFrom.isValid() && ledTo.isValid()
        ? hostCall<Call>(name)(fromFolder, ledFrom.path(), toFolder, ledTo.path(), others...)
        : -1;
}

} // namespace hardware
