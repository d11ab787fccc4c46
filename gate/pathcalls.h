#pragma once

// How the C library's calls that take a path, as the whole process makes them while a gate is open,
// lead it and pass the call on. "…64", "__…_2" and "__…_chk" are what the plain names become in
// code that is compiled for large files or with checks of buffers.

#include "hostcall.h"
#include "mappedpath.h"
#include "unitcall.h"

#include "hardware/unit/kepterrno.h"

#include <unistd.h>

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

/// What a call does to what is at a path.
enum Effect {
    Looks,
    Changes,
    Adds ///< changes nothing where there is something already
};

inline void tellEffect(Effect effect, const MappedPath &mapped, UnitCall *call)
{
    const KeptErrno kept;
    if (mapped.unitPath() != nullptr
        && (effect == Changes || (effect == Adds && access(mapped.path(), F_OK) != 0))) {
        call->changes(mapped.unitPath());
    }
}

template <auto *Call, typename... Others>
auto withPath(Effect effect, const char *name, const char *path, Others... others)
{
    const MappedPath mapped(path);
    using Result = decltype(Call(path, others...));
    if (!mapped.isValid()) {
        return failure<Result>();
    }
    UnitCall call(name, mapped.unitPath());
    tellEffect(effect, mapped, &call);
    return passOn(call, [&] { return hostCall<Call>(name)(mapped.path(), others...); });
}

template <auto *Call, typename... Others>
auto withPath(const char *name, const char *path, Others... others)
{
    return withPath<Call>(Looks, name, path, others...);
}

template <auto *Call, typename... Others>
auto withPathAt(Effect effect, const char *name, int folder, const char *path, Others... others)
{
    const MappedPath mapped(path);
    using Result = decltype(Call(folder, path, others...));
    if (!mapped.isValid()) {
        return failure<Result>();
    }
    UnitCall call(name, mapped.unitPath());
    tellEffect(effect, mapped, &call);
    return passOn(call, [&] { return hostCall<Call>(name)(folder, mapped.path(), others...); });
}

template <auto *Call, typename... Others>
auto withPathAt(const char *name, int folder, const char *path, Others... others)
{
    return withPathAt<Call>(Looks, name, folder, path, others...);
}

/// Makes a call on two paths, the second of which it changes, with a line if the first one is the
/// unit's. \a effect is that on the first one.
template <typename Make>
int passOnTwo(Effect effect, const char *name, const MappedPath &from, const MappedPath &to,
              const char *toAsGiven, const Make &make)
{
    if (!from.isValid() || !to.isValid()) {
        return -1;
    }
    UnitCall call(name, from.unitPath(),
                  toAsGiven == nullptr ? "NULL" : '"' + std::string(toAsGiven) + '"');
    tellEffect(effect, from, &call);
    tellEffect(Changes, to, &call);
    return passOn(call, make);
}

template <auto *Call>
int withPaths(Effect effect, const char *name, const char *from, const char *to)
{
    const MappedPath mappedFrom(from);
    const MappedPath mappedTo(to);
    return passOnTwo(effect, name, mappedFrom, mappedTo, to,
                     [&] { return hostCall<Call>(name)(mappedFrom.path(), mappedTo.path()); });
}

template <auto *Call, typename... Others>
int withPathsAt(Effect effect, const char *name, int fromFolder, const char *from, int toFolder,
                const char *to, Others... others)
{
    const MappedPath mappedFrom(from);
    const MappedPath mappedTo(to);
    return passOnTwo(effect, name, mappedFrom, mappedTo, to, [&] {
        return hostCall<Call>(name)(fromFolder, mappedFrom.path(), toFolder, mappedTo.path(),
                                    others...);
    });
}

} // namespace hardware
