// The calls that look at what is there.

#include "pathcalls.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdlib>

using namespace hardware;

extern "C" {

// Not declared by the headers.
// NOLINTBEGIN(bugprone-reserved-identifier)
ssize_t __readlink_chk(const char *path, char *target, size_t size, size_t limit) noexcept;
ssize_t __readlinkat_chk(int folder, const char *path, char *target, size_t size,
                         size_t limit) noexcept;
char *__realpath_chk(const char *path, char *resolved, size_t limit) noexcept;
// NOLINTEND(bugprone-reserved-identifier)

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

// Folders and what happens in them

DIR *opendir(const char *path)
{
    return withPath<::opendir>(__func__, path);
}

int chdir(const char *path) noexcept
{
    return withPath<::chdir>(__func__, path);
}

int inotify_add_watch(int queue, const char *path, uint32_t events) noexcept
{
    return withPathAt<::inotify_add_watch>(__func__, queue, path, events);
}

} // extern "C"
