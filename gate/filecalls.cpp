// The C library's calls that take a path, as the whole process makes them while a gate is open:
// each leads its path and passes the call on. "…64", "__…_2" and "__…_chk" are what the plain names
// become in code that is compiled for large files or with checks of buffers.

#include "gate.h"
#include "hostcall.h"
#include "ledpath.h"

#include "hardware/unit/unit.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/time.h>
#include <unistd.h>
#include <utime.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <type_traits>

using hardware::hostCall;
using hardware::LedPath;

namespace
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

/// Tells the unit of a file of its own that was opened; a negative descriptor is none.
int toldUnit(const LedPath &led, int descriptor)
{
    if (led.unitPath() != nullptr && descriptor >= 0) {
        hardware::Gate::current()->unit().openFiles().opened(descriptor, led.unitPath(),
                                                             led.path());
    }
    return descriptor;
}

/// Opens a file of that path and tells the unit, or the memory device.
template <auto *Call, typename... Others>
int openPath(const char *name, const char *path, int flags, Others... others)
{
    const LedPath led(path);
    if (!led.isValid()) {
        return -1;
    }
    if (!led.isMemory()) {
        return toldUnit(led, hostCall<Call>(name)(led.path(), flags, others...));
    }
    hardware::MemoryDevice &device = hardware::Gate::current()->unit().memoryDevice();
    int descriptor = -1;
    if (device.fault() == hardware::MemoryDevice::Missing) {
        errno = ENOENT;
    } else {
        // The device has no size, the file in its place has one that needs the flag.
        descriptor = hostCall<Call>(name)(led.path(), flags | O_LARGEFILE, others...);
    }
    device.opened(descriptor);
    return descriptor;
}

template <auto *Call> FILE *openStream(const char *name, const char *path, const char *mode)
{
    const LedPath led(path);
    FILE *stream = led.isValid() ? hostCall<Call>(name)(led.path(), mode) : nullptr;
    if (stream != nullptr) {
        toldUnit(led, fileno(stream));
    }
    return stream;
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

/// freopen() closes the stream also when it fails: one that must fail gets a path that does.
template <auto *Call>
FILE *reopened(const char *name, const char *path, const char *mode, FILE *stream)
{
    const LedPath led(path);
    const int refusal = errno;
    FILE *result = hostCall<Call>(name)(led.isValid() ? led.path() : "", mode, stream);
    if (!led.isValid()) {
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
ssize_t __readlink_chk(const char *path, char *target, size_t size, size_t limit) noexcept;
ssize_t __readlinkat_chk(int folder, const char *path, char *target, size_t size,
                         size_t limit) noexcept;
char *__realpath_chk(const char *path, char *resolved, size_t limit) noexcept;
// NOLINTEND(bugprone-reserved-identifier)

// Opening files

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
    return withPathAt<::openat>(__func__, folder, path, flags, mode);
}

int openat64(int folder, const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    return withPathAt<::openat64>(__func__, folder, path, flags, mode);
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
    return withPathAt<::__openat_2>(__func__, folder, path, flags);
}

int __openat64_2(int folder, const char *path, int flags)
{
    return withPathAt<::__openat64_2>(__func__, folder, path, flags);
}

int creat(const char *path, mode_t mode)
{
    return withPath<::creat>(__func__, path, mode);
}

int creat64(const char *path, mode_t mode)
{
    return withPath<::creat64>(__func__, path, mode);
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

// What is there

int access(const char *path, int mode) noexcept
{
    return withPath<::access>(__func__, path, mode);
}

int eaccess(const char *path, int mode) noexcept
{
    return withPath<::eaccess>(__func__, path, mode);
}

int euidaccess(const char *path, int mode) noexcept
{
    return withPath<::euidaccess>(__func__, path, mode);
}

int faccessat(int folder, const char *path, int mode, int flags) noexcept
{
    return withPathAt<::faccessat>(__func__, folder, path, mode, flags);
}

int stat(const char *path, struct stat *status) noexcept
{
    return withPath<::stat>(__func__, path, status);
}

int stat64(const char *path, struct stat64 *status) noexcept
{
    return withPath<::stat64>(__func__, path, status);
}

int lstat(const char *path, struct stat *status) noexcept
{
    return withPath<::lstat>(__func__, path, status);
}

int lstat64(const char *path, struct stat64 *status) noexcept
{
    return withPath<::lstat64>(__func__, path, status);
}

int fstatat(int folder, const char *path, struct stat *status, int flags) noexcept
{
    return withPathAt<::fstatat>(__func__, folder, path, status, flags);
}

int fstatat64(int folder, const char *path, struct stat64 *status, int flags) noexcept
{
    return withPathAt<::fstatat64>(__func__, folder, path, status, flags);
}

int statx(int folder, const char *path, int flags, unsigned int mask, struct statx *status) noexcept
{
    return withPathAt<::statx>(__func__, folder, path, flags, mask, status);
}

int statfs(const char *path, struct statfs *status) noexcept
{
    return withPath<::statfs>(__func__, path, status);
}

int statfs64(const char *path, struct statfs64 *status) noexcept
{
    return withPath<::statfs64>(__func__, path, status);
}

int statvfs(const char *path, struct statvfs *status) noexcept
{
    return withPath<::statvfs>(__func__, path, status);
}

int statvfs64(const char *path, struct statvfs64 *status) noexcept
{
    return withPath<::statvfs64>(__func__, path, status);
}

ssize_t readlink(const char *path, char *target, size_t size) noexcept
{
    return withPath<::readlink>(__func__, path, target, size);
}

ssize_t __readlink_chk(const char *path, char *target, size_t size, size_t limit) noexcept
{
    return withPath<::__readlink_chk>(__func__, path, target, size, limit);
}

ssize_t readlinkat(int folder, const char *path, char *target, size_t size) noexcept
{
    return withPathAt<::readlinkat>(__func__, folder, path, target, size);
}

ssize_t __readlinkat_chk(int folder, const char *path, char *target, size_t size,
                         size_t limit) noexcept
{
    return withPathAt<::__readlinkat_chk>(__func__, folder, path, target, size, limit);
}

// These give the path on the host, which any call takes as well.

char *realpath(const char *path, char *resolved) noexcept
{
    return withPath<::realpath>(__func__, path, resolved);
}

char *__realpath_chk(const char *path, char *resolved, size_t limit) noexcept
{
    return withPath<::__realpath_chk>(__func__, path, resolved, limit);
}

char *canonicalize_file_name(const char *path) noexcept
{
    return withPath<::canonicalize_file_name>(__func__, path);
}

// Folders

DIR *opendir(const char *path)
{
    return withPath<::opendir>(__func__, path);
}

int chdir(const char *path) noexcept
{
    return withPath<::chdir>(__func__, path);
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return withPath<::mkdir>(__func__, path, mode);
}

int mkdirat(int folder, const char *path, mode_t mode) noexcept
{
    return withPathAt<::mkdirat>(__func__, folder, path, mode);
}

int rmdir(const char *path) noexcept
{
    return withPath<::rmdir>(__func__, path);
}

// Names

int unlink(const char *path) noexcept
{
    return withPath<::unlink>(__func__, path);
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    return withPathAt<::unlinkat>(__func__, folder, path, flags);
}

int remove(const char *path) noexcept
{
    return withPath<::remove>(__func__, path);
}

int rename(const char *from, const char *to) noexcept
{
    return withPaths<::rename>(__func__, from, to);
}

int link(const char *from, const char *to) noexcept
{
    return withPaths<::link>(__func__, from, to);
}

int symlink(const char *from, const char *to) noexcept
{
    return withPaths<::symlink>(__func__, from, to);
}

int renameat(int fromFolder, const char *from, int toFolder, const char *to) noexcept
{
    return withPathsAt<::renameat>(__func__, fromFolder, from, toFolder, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned int flags) noexcept
{
    return withPathsAt<::renameat2>(__func__, fromFolder, from, toFolder, to, flags);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    return withPathsAt<::linkat>(__func__, fromFolder, from, toFolder, to, flags);
}

int symlinkat(const char *from, int toFolder, const char *to) noexcept
{
    const LedPath ledFrom(from);
    const LedPath ledTo(to);
    return ledFrom.isValid() && ledTo.isValid()
        ? hostCall<::symlinkat>(__func__)(ledFrom.path(), toFolder, ledTo.path())
        : -1;
}

// Contents and attributes

int truncate(const char *path, off_t length) noexcept
{
    return withPath<::truncate>(__func__, path, length);
}

int truncate64(const char *path, off64_t length) noexcept
{
    return withPath<::truncate64>(__func__, path, length);
}

int chmod(const char *path, mode_t mode) noexcept
{
    return withPath<::chmod>(__func__, path, mode);
}

int fchmodat(int folder, const char *path, mode_t mode, int flags) noexcept
{
    return withPathAt<::fchmodat>(__func__, folder, path, mode, flags);
}

int chown(const char *path, uid_t owner, gid_t group) noexcept
{
    return withPath<::chown>(__func__, path, owner, group);
}

int lchown(const char *path, uid_t owner, gid_t group) noexcept
{
    return withPath<::lchown>(__func__, path, owner, group);
}

int utime(const char *path, const struct utimbuf *times) noexcept
{
    return withPath<::utime>(__func__, path, times);
}

int utimes(const char *path, const struct timeval *times) noexcept
{
    return withPath<::utimes>(__func__, path, times);
}

int utimensat(int folder, const char *path, const struct timespec *times, int flags) noexcept
{
    return withPathAt<::utimensat>(__func__, folder, path, times, flags);
}

int inotify_add_watch(int queue, const char *path, uint32_t events) noexcept
{
    return withPathAt<::inotify_add_watch>(__func__, queue, path, events);
}

} // extern "C"
