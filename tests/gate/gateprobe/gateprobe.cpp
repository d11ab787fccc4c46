#include "gateprobe.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/select.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/time.h>
#include <unistd.h>
#include <utime.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{

const char content[] = "known";

int asErrno(long result)
{
    return result >= 0 ? 0 : errno;
}

/// Reads what a file call opened and closes it.
int checked(int descriptor)
{
    if (descriptor < 0) {
        return errno;
    }
    char buffer[sizeof content] = {};
    const ssize_t size = read(descriptor, buffer, sizeof buffer - 1);
    close(descriptor);
    return size >= 0 && std::strcmp(buffer, content) == 0 ? 0 : EILSEQ;
}

int checked(FILE *stream)
{
    if (stream == nullptr) {
        return errno;
    }
    char buffer[sizeof content] = {};
    const size_t size = std::fread(buffer, 1, sizeof buffer - 1, stream);
    std::fclose(stream);
    return size > 0 && std::strcmp(buffer, content) == 0 ? 0 : EILSEQ;
}

/// A stream for freopen(). glibc does not free the one that it closes when it fails: it is kept, so
/// that nobody takes it for a leak of ours.
FILE *openStream()
{
    [[gnu::used]] static FILE *streams[64];
    static size_t count = 0;
    FILE *stream = std::tmpfile();
    streams[count++ % 64] = stream;
    return stream;
}

int closed(int descriptor)
{
    return descriptor < 0 ? errno : asErrno(close(descriptor));
}

int checkedSize(int result, long long size)
{
    return result < 0 ? errno : size == static_cast<long long>(std::strlen(content)) ? 0 : EILSEQ;
}

int resolved(char *path)
{
    if (path == nullptr) {
        return errno;
    }
    std::free(path);
    return 0;
}

/// readlink() gives EINVAL for what is there and no link.
int notALink(ssize_t length)
{
    return length < 0 && errno == EINVAL ? 0 : errno;
}

int watched(const char *path)
{
    const int queue = inotify_init1(0);
    const int result = asErrno(inotify_add_watch(queue, path, IN_MODIFY));
    close(queue);
    return result;
}

// The flags are no constants to the compiler, as in a caller that was given them.
volatile int readOnly = O_RDONLY;
volatile size_t linkSize = PATH_MAX;

const ProbeCall calls[] = {
    {"open", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(open(path, O_RDONLY)); }},
    {"open, flags at run time", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(open(path, readOnly)); }},
    {"open64", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(open64(path, O_RDONLY)); }},
    {"open64, flags at run time", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(open64(path, readOnly)); }},
    {"openat", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(openat(AT_FDCWD, path, O_RDONLY)); }},
    {"openat, flags at run time", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(openat(AT_FDCWD, path, readOnly)); }},
    {"openat64", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(openat64(AT_FDCWD, path, O_RDONLY)); }},
    {"openat64, flags at run time", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(openat64(AT_FDCWD, path, readOnly)); }},
    {"fopen", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(std::fopen(path, "r")); }},
    {"fopen64", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(fopen64(path, "r")); }},
    {"freopen", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(std::freopen(path, "r", openStream())); }},
    {"freopen64", ProbeCall::Reads,
     [](const char *path, const char *) { return checked(freopen64(path, "r", openStream())); }},
    {"access", ProbeCall::Reads,
     [](const char *path, const char *) { return asErrno(access(path, F_OK)); }},
    {"eaccess", ProbeCall::Reads,
     [](const char *path, const char *) { return asErrno(eaccess(path, F_OK)); }},
    {"euidaccess", ProbeCall::Reads,
     [](const char *path, const char *) { return asErrno(euidaccess(path, F_OK)); }},
    {"faccessat", ProbeCall::Reads,
     [](const char *path, const char *) { return asErrno(faccessat(AT_FDCWD, path, F_OK, 0)); }},
    {"stat", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct stat status;
         const int result = stat(path, &status);
         return checkedSize(result, status.st_size);
     }},
    {"stat64", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct stat64 status;
         const int result = stat64(path, &status);
         return checkedSize(result, status.st_size);
     }},
    {"lstat", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct stat status;
         const int result = lstat(path, &status);
         return checkedSize(result, status.st_size);
     }},
    {"lstat64", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct stat64 status;
         const int result = lstat64(path, &status);
         return checkedSize(result, status.st_size);
     }},
    {"fstatat", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct stat status;
         const int result = fstatat(AT_FDCWD, path, &status, 0);
         return checkedSize(result, status.st_size);
     }},
    {"fstatat64", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct stat64 status;
         const int result = fstatat64(AT_FDCWD, path, &status, 0);
         return checkedSize(result, status.st_size);
     }},
    {"statx", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct statx status;
         const int result = statx(AT_FDCWD, path, 0, STATX_SIZE, &status);
         return checkedSize(result, static_cast<long long>(status.stx_size));
     }},
    {"statfs", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct statfs status;
         return asErrno(statfs(path, &status));
     }},
    {"statfs64", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct statfs64 status;
         return asErrno(statfs64(path, &status));
     }},
    {"statvfs", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct statvfs status;
         return asErrno(statvfs(path, &status));
     }},
    {"statvfs64", ProbeCall::Reads,
     [](const char *path, const char *) {
         struct statvfs64 status;
         return asErrno(statvfs64(path, &status));
     }},
    {"readlink", ProbeCall::Reads,
     [](const char *path, const char *) {
         char target[PATH_MAX];
         return notALink(readlink(path, target, sizeof target));
     }},
    {"readlink, size at run time", ProbeCall::Reads,
     [](const char *path, const char *) {
         char target[PATH_MAX];
         return notALink(readlink(path, target, linkSize));
     }},
    {"readlinkat", ProbeCall::Reads,
     [](const char *path, const char *) {
         char target[PATH_MAX];
         return notALink(readlinkat(AT_FDCWD, path, target, sizeof target));
     }},
    {"readlinkat, size at run time", ProbeCall::Reads,
     [](const char *path, const char *) {
         char target[PATH_MAX];
         return notALink(readlinkat(AT_FDCWD, path, target, linkSize));
     }},
    {"realpath", ProbeCall::Reads,
     [](const char *path, const char *) { return resolved(realpath(path, nullptr)); }},
    {"realpath, own buffer", ProbeCall::Reads,
     [](const char *path, const char *) {
         char target[PATH_MAX];
         return realpath(path, target) != nullptr ? 0 : errno;
     }},
    {"canonicalize_file_name", ProbeCall::Reads,
     [](const char *path, const char *) { return resolved(canonicalize_file_name(path)); }},
    {"inotify_add_watch", ProbeCall::Reads,
     [](const char *path, const char *) { return watched(path); }},

    {"opendir", ProbeCall::Enters,
     [](const char *path, const char *) {
         DIR *folder = opendir(path);
         return folder == nullptr ? errno : asErrno(closedir(folder));
     }},
    {"open, folder", ProbeCall::Enters,
     [](const char *path, const char *) { return closed(open(path, O_DIRECTORY)); }},
    {"chdir", ProbeCall::Enters,
     [](const char *path, const char *) {
         const int former = open(".", O_DIRECTORY);
         const int result = asErrno(chdir(path));
         const int back = asErrno(fchdir(former));
         close(former);
         return result != 0 ? result : back;
     }},

    {"open, making", ProbeCall::Makes,
     [](const char *path, const char *) { return closed(open(path, O_CREAT | O_RDWR, 0640)); }},
    {"open64, making", ProbeCall::Makes,
     [](const char *path, const char *) { return closed(open64(path, O_CREAT | O_RDWR, 0640)); }},
    {"openat, making", ProbeCall::Makes,
     [](const char *path, const char *) {
         return closed(openat(AT_FDCWD, path, O_CREAT | O_RDWR, 0640));
     }},
    {"openat64, making", ProbeCall::Makes,
     [](const char *path, const char *) {
         return closed(openat64(AT_FDCWD, path, O_CREAT | O_RDWR, 0640));
     }},
    {"creat", ProbeCall::Makes,
     [](const char *path, const char *) { return closed(creat(path, 0640)); }},
    {"creat64", ProbeCall::Makes,
     [](const char *path, const char *) { return closed(creat64(path, 0640)); }},
    {"fopen, making", ProbeCall::Makes,
     [](const char *path, const char *) {
         FILE *stream = std::fopen(path, "w");
         return stream == nullptr ? errno : asErrno(std::fclose(stream));
     }},
    {"mkdir", ProbeCall::Makes,
     [](const char *path, const char *) { return asErrno(mkdir(path, 0750)); }},
    {"mkdirat", ProbeCall::Makes,
     [](const char *path, const char *) { return asErrno(mkdirat(AT_FDCWD, path, 0750)); }},

    {"truncate", ProbeCall::Changes,
     [](const char *path, const char *) { return asErrno(truncate(path, 1)); }},
    {"truncate64", ProbeCall::Changes,
     [](const char *path, const char *) { return asErrno(truncate64(path, 1)); }},
    {"chmod", ProbeCall::Changes,
     [](const char *path, const char *) { return asErrno(chmod(path, 0400)); }},
    {"fchmodat", ProbeCall::Changes,
     [](const char *path, const char *) { return asErrno(fchmodat(AT_FDCWD, path, 0400, 0)); }},
    {"chown", ProbeCall::Changes,
     [](const char *path, const char *) { return asErrno(chown(path, getuid(), getgid())); }},
    {"lchown", ProbeCall::Changes,
     [](const char *path, const char *) { return asErrno(lchown(path, getuid(), getgid())); }},
    {"utime", ProbeCall::Changes,
     [](const char *path, const char *) {
         const utimbuf times = {1000, 1000};
         return asErrno(utime(path, &times));
     }},
    {"utimes", ProbeCall::Changes,
     [](const char *path, const char *) {
         const timeval times[2] = {{1000, 0}, {1000, 0}};
         return asErrno(utimes(path, times));
     }},
    {"utimensat", ProbeCall::Changes,
     [](const char *path, const char *) {
         const timespec times[2] = {{1000, 0}, {1000, 0}};
         return asErrno(utimensat(AT_FDCWD, path, times, 0));
     }},

    {"unlink", ProbeCall::Removes,
     [](const char *path, const char *) { return asErrno(unlink(path)); }},
    {"unlinkat", ProbeCall::Removes,
     [](const char *path, const char *) { return asErrno(unlinkat(AT_FDCWD, path, 0)); }},
    {"remove", ProbeCall::Removes,
     [](const char *path, const char *) { return asErrno(std::remove(path)); }},
    {"rmdir", ProbeCall::RemovesFolder,
     [](const char *path, const char *) { return asErrno(rmdir(path)); }},
    {"remove, folder", ProbeCall::RemovesFolder,
     [](const char *path, const char *) { return asErrno(std::remove(path)); }},

    {"rename", ProbeCall::Joins,
     [](const char *path, const char *other) { return asErrno(std::rename(path, other)); }},
    {"renameat", ProbeCall::Joins,
     [](const char *path, const char *other) {
         return asErrno(renameat(AT_FDCWD, path, AT_FDCWD, other));
     }},
    {"renameat2", ProbeCall::Joins,
     [](const char *path, const char *other) {
         return asErrno(renameat2(AT_FDCWD, path, AT_FDCWD, other, RENAME_NOREPLACE));
     }},
    {"link", ProbeCall::Joins,
     [](const char *path, const char *other) { return asErrno(link(path, other)); }},
    {"linkat", ProbeCall::Joins,
     [](const char *path,
        const char *other) { return asErrno(linkat(AT_FDCWD, path, AT_FDCWD, other, 0)); }},
    {"symlink", ProbeCall::Joins,
     [](const char *path, const char *other) { return asErrno(symlink(path, other)); }},
    {"symlinkat", ProbeCall::Joins,
     [](const char *path, const char *other) { return asErrno(symlinkat(path, AT_FDCWD, other)); }},
};

const GateProbe probe = {
    calls,
    sizeof calls / sizeof calls[0],
    [](const char *command) { return std::system(command); },
    [](unsigned int seconds) { return sleep(seconds); },
    [](unsigned int microseconds) { return usleep(microseconds); },
    [](const timespec *duration, timespec *remaining) { return nanosleep(duration, remaining); },
    [](int descriptor, timeval *timeout) {
        fd_set readable;
        FD_ZERO(&readable);
        FD_SET(descriptor, &readable);
        return select(descriptor + 1, &readable, nullptr, nullptr, timeout);
    },
    [](timeval *time) { return gettimeofday(time, nullptr); },
};

} // namespace

extern "C" const GateProbe *gateProbe()
{
    return &probe;
}
