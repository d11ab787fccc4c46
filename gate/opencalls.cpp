// The calls that open a file. The unit, and its memory device, is told.

#include "gate.h"
#include "pathcalls.h"

#include "hardware/unit/unit.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

using namespace hardware;

namespace
{

/// Tells the unit of a file of its own that was opened; a negative descriptor is none.
int toldUnit(const MappedPath &mapped, int descriptor)
{
    if (mapped.unitPath() != nullptr && descriptor >= 0) {
        Gate::current()->unit().openFiles().opened(descriptor, mapped.unitPath(), mapped.path());
    }
    return descriptor;
}

Effect effectOf(int flags)
{
    if ((flags & O_ACCMODE) != O_RDONLY || (flags & O_TRUNC) != 0) {
        return Changes;
    }
    return (flags & O_CREAT) != 0 ? Adds : Looks;
}

/// Of a stream that is opened like that.
Effect effectOf(const char *mode)
{
    return std::strpbrk(mode, "wa+") == nullptr ? Looks : Changes;
}

/// Opens a file of that path and tells the unit, and the memory device of itself.
template <auto *Call, typename... Others>
int openPath(const char *name, const char *path, int flags, Others... others)
{
    const MappedPath mapped(path);
    if (!mapped.isValid()) {
        return -1;
    }
    UnitCall call(name, mapped.unitPath(), openFlags(flags));
    tellEffect(effectOf(flags), mapped, &call);
    if (!mapped.isMemory()) {
        return toldUnit(mapped, passOn(call, [&] {
                            return hostCall<Call>(name)(mapped.path(), flags, others...);
                        }));
    }
    MemoryDevice &device = Gate::current()->unit().memoryDevice();
    const int descriptor = passOn(call, [&] {
        if (device.fault() == MemoryDevice::Missing) {
            errno = ENOENT;
            return -1;
        }
        // The device has no size, the file in its place has one that needs the flag.
        return hostCall<Call>(name)(mapped.path(), flags | O_LARGEFILE, others...);
    });
    device.opened(descriptor);
    return toldUnit(mapped, descriptor);
}

template <auto *Call> FILE *openStream(const char *name, const char *path, const char *mode)
{
    const MappedPath mapped(path);
    if (!mapped.isValid()) {
        return nullptr;
    }
    UnitCall call(name, mapped.unitPath(), '"' + std::string(mode) + '"');
    tellEffect(effectOf(mode), mapped, &call);
    FILE *stream = passOn(call, [&] { return hostCall<Call>(name)(mapped.path(), mode); });
    if (stream != nullptr) {
        toldUnit(mapped, fileno(stream));
    }
    return stream;
}

/// freopen() closes the stream also when it fails: one that must fail gets a path that does.
template <auto *Call>
FILE *reopened(const char *name, const char *path, const char *mode, FILE *stream)
{
    const MappedPath mapped(path);
    UnitCall call(name, nullptr);
    tellEffect(effectOf(mode), mapped, &call);
    const bool isRefused = !mapped.isValid() || call.mustFail();
    const int refusal = errno;
    FILE *result = hostCall<Call>(name)(isRefused ? "" : mapped.path(), mode, stream);
    if (isRefused) {
        errno = refusal;
    }
    return result;
}

/// The mode that open() takes when it may make a file; callers leave it away otherwise.
mode_t modeArgument(int flags, va_list arguments)
{
    const bool isGiven = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): started by the caller
    return isGiven ? va_arg(arguments, mode_t) : 0;
}

} // namespace

extern "C" {

// Not declared by the headers.
// NOLINTBEGIN(bugprone-reserved-identifier)
int __open_2(const char *path, int flags);
int __open64_2(const char *path, int flags);
int __openat_2(int folder, const char *path, int flags);
int __openat64_2(int folder, const char *path, int flags);
// NOLINTEND(bugprone-reserved-identifier)

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    return openPath<::open>(__func__, path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    return openPath<::open64>(__func__, path, flags, mode);
}

int openat(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    return withPathAt<::openat>(effectOf(flags), __func__, folder, path, flags, mode);
}

int openat64(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    return withPathAt<::openat64>(effectOf(flags), __func__, folder, path, flags, mode);
}

int __open_2(const char *path, int flags)
{
    return openPath<::__open_2>(__func__, path, flags);
}

int __open64_2(const char *path, int flags)
{
    return openPath<::__open64_2>(__func__, path, flags);
}

int __openat_2(int folder, const char *path, int flags)
{
    return withPathAt<::__openat_2>(effectOf(flags), __func__, folder, path, flags);
}

int __openat64_2(int folder, const char *path, int flags)
{
    return withPathAt<::__openat64_2>(effectOf(flags), __func__, folder, path, flags);
}

int creat(const char *path, mode_t mode)
{
    return withPath<::creat>(Changes, __func__, path, mode);
}

int creat64(const char *path, mode_t mode)
{
    return withPath<::creat64>(Changes, __func__, path, mode);
}

FILE *fopen(const char *path, const char *mode)
{
    return openStream<::fopen>(__func__, path, mode);
}

FILE *fopen64(const char *path, const char *mode)
{
    return openStream<::fopen64>(__func__, path, mode);
}

FILE *freopen(const char *path, const char *mode, FILE *stream)
{
    return reopened<::freopen>(__func__, path, mode, stream);
}

FILE *freopen64(const char *path, const char *mode, FILE *stream)
{
    return reopened<::freopen64>(__func__, path, mode, stream);
}

} // extern "C"
