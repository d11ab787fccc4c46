// The calls that change what is there.

#include "pathcalls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>
#include <utime.h>

#include <cstdio>

using namespace hardware;

extern "C" {

// Folders

int mkdir(const char *path, mode_t mode) noexcept
{
    return withPath<::mkdir>(Adds, __func__, path, mode);
}

int mkdirat(int folder, const char *path, mode_t mode) noexcept
{
    return withPathAt<::mkdirat>(Adds, __func__, folder, path, mode);
}

int rmdir(const char *path) noexcept
{
    return withPath<::rmdir>(Changes, __func__, path);
}

// Names

int unlink(const char *path) noexcept
{
    return withPath<::unlink>(Changes, __func__, path);
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    return withPathAt<::unlinkat>(Changes, __func__, folder, path, flags);
}

int remove(const char *path) noexcept
{
    return withPath<::remove>(Changes, __func__, path);
}

int rename(const char *from, const char *to) noexcept
{
    return withPaths<::rename>(Changes, __func__, from, to);
}

int link(const char *from, const char *to) noexcept
{
    return withPaths<::link>(Looks, __func__, from, to);
}

int symlink(const char *from, const char *to) noexcept
{
    return withPaths<::symlink>(Looks, __func__, from, to);
}

int renameat(int fromFolder, const char *from, int toFolder, const char *to) noexcept
{
    return withPathsAt<::renameat>(Changes, __func__, fromFolder, from, toFolder, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned int flags) noexcept
{
    return withPathsAt<::renameat2>(Changes, __func__, fromFolder, from, toFolder, to, flags);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    return withPathsAt<::linkat>(Looks, __func__, fromFolder, from, toFolder, to, flags);
}

int symlinkat(const char *from, int toFolder, const char *to) noexcept
{
    const MappedPath mappedFrom(from);
    const MappedPath mappedTo(to);
    return passOnTwo(Looks, __func__, mappedFrom, mappedTo, to, [&] {
        return hostCall<::symlinkat>("symlinkat")(mappedFrom.path(), toFolder, mappedTo.path());
    });
}

// Contents and attributes

int truncate(const char *path, off_t length) noexcept
{
    return withPath<::truncate>(Changes, __func__, path, length);
}

int truncate64(const char *path, off64_t length) noexcept
{
    return withPath<::truncate64>(Changes, __func__, path, length);
}

int chmod(const char *path, mode_t mode) noexcept
{
    return withPath<::chmod>(Changes, __func__, path, mode);
}

int fchmodat(int folder, const char *path, mode_t mode, int flags) noexcept
{
    return withPathAt<::fchmodat>(Changes, __func__, folder, path, mode, flags);
}

int chown(const char *path, uid_t owner, gid_t group) noexcept
{
    return withPath<::chown>(Changes, __func__, path, owner, group);
}

int lchown(const char *path, uid_t owner, gid_t group) noexcept
{
    return withPath<::lchown>(Changes, __func__, path, owner, group);
}

int utime(const char *path, const struct utimbuf *times) noexcept
{
    return withPath<::utime>(Changes, __func__, path, times);
}

int utimes(const char *path, const struct timeval *times) noexcept
{
    return withPath<::utimes>(Changes, __func__, path, times);
}

int utimensat(int folder, const char *path, const struct timespec *times, int flags) noexcept
{
    return withPathAt<::utimensat>(Changes, __func__, folder, path, times, flags);
}

} // extern "C"
