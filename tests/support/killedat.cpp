// Loaded ahead of the C library, it ends a program with SIGKILL at one of its changes of what lies
// below a folder. Of bytes that it was about to write there half are written, but no half of a
// word.
//
//   KILLED_BELOW  the folder
//   KILLED_AT     at which change, counted from 1; at none where it is missing
//   KILLED_LOG    a file that gets a line for each change

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>

namespace
{

constexpr std::size_t word = 4;

template <auto *Call> auto real(const char *name)
{
    return reinterpret_cast<decltype(Call)>(dlsym(RTLD_NEXT, name));
}

struct Killing
{
    const char *below = std::getenv("KILLED_BELOW");
    long at = number(std::getenv("KILLED_AT"));
    long count = 0;
    int log = openLog(std::getenv("KILLED_LOG"));
    std::mutex mutex;

    static long number(const char *text) { return text == nullptr ? 0 : std::atol(text); }
    static int openLog(const char *name)
    {
        // What the program starts itself is not meant.
        unsetenv("LD_PRELOAD");
        return name == nullptr
            ? -1
            : real<::open>("open")(name, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    }
};

/// Never destroyed: a program writes until it ends.
Killing &killing()
{
    static auto *const all = new Killing;
    return *all;
}

__attribute__((constructor)) void start()
{
    killing();
}

/// Whether the change there, which is about to be made, is the last thing that happens. No other
/// thread makes one then.
bool isLast(const char *call, const char *path)
{
    Killing &all = killing();
    if (all.below == nullptr || std::strncmp(path, all.below, std::strlen(all.below)) != 0) {
        return false;
    }
    all.mutex.lock();
    const bool isIt = ++all.count == all.at;
    char line[PATH_MAX + 64];
    const int size =
        std::snprintf(line, sizeof line, "%s %s\n", call, path + std::strlen(all.below));
    if (all.log >= 0 && real<::write>("write")(all.log, line, size_t(size)) != size) {
        std::abort();
    }
    if (!isIt) {
        all.mutex.unlock();
    }
    return isIt;
}

void end()
{
    kill(getpid(), SIGKILL);
    pause();
}

void change(const char *call, const char *path)
{
    if (isLast(call, path)) {
        end();
    }
}

/// Path of what is open; empty when it has none.
struct OpenPath
{
    explicit OpenPath(int descriptor)
    {
        char link[64];
        std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
        const ssize_t size = readlink(link, text, sizeof text - 1);
        text[size < 0 ? 0 : size] = '\0';
    }
    char text[PATH_MAX];
};

template <typename... Words>
int opened(int (*call)(Words..., int, ...), const char *name, const char *path, Words... words,
           int flags, mode_t mode)
{
    if ((flags & (O_CREAT | O_TRUNC)) != 0) {
        change(name, path);
    }
    return call(words..., flags, mode);
}

} // namespace

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return opened<const char *>(real<::open>(__func__), __func__, path, path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return opened<const char *>(real<::open64>(__func__), __func__, path, path, flags, mode);
}

int openat(int folder, const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return opened<int, const char *>(real<::openat>(__func__), __func__, path, folder, path, flags,
                                     mode);
}

int rename(const char *from, const char *to) noexcept
{
    change(__func__, to);
    return real<::rename>(__func__)(from, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept
{
    change(__func__, to);
    return real<::renameat2>(__func__)(fromFolder, from, toFolder, to, flags);
}

int unlink(const char *path) noexcept
{
    change(__func__, path);
    return real<::unlink>(__func__)(path);
}

int remove(const char *path) noexcept
{
    change(__func__, path);
    return real<::remove>(__func__)(path);
}

int rmdir(const char *path) noexcept
{
    change(__func__, path);
    return real<::rmdir>(__func__)(path);
}

int mkdir(const char *path, mode_t mode) noexcept
{
    change(__func__, path);
    return real<::mkdir>(__func__)(path, mode);
}

int symlink(const char *target, const char *path) noexcept
{
    change(__func__, path);
    return real<::symlink>(__func__)(target, path);
}

int link(const char *from, const char *path) noexcept
{
    change(__func__, path);
    return real<::link>(__func__)(from, path);
}

int chmod(const char *path, mode_t mode) noexcept
{
    change(__func__, path);
    return real<::chmod>(__func__)(path, mode);
}

int fchmod(int descriptor, mode_t mode) noexcept
{
    change(__func__, OpenPath(descriptor).text);
    return real<::fchmod>(__func__)(descriptor, mode);
}

int ftruncate64(int descriptor, off64_t size) noexcept
{
    change(__func__, OpenPath(descriptor).text);
    return real<::ftruncate64>(__func__)(descriptor, size);
}

ssize_t write(int descriptor, const void *bytes, size_t size)
{
    const auto call = real<::write>(__func__);
    if (isLast(__func__, OpenPath(descriptor).text)) {
        const ssize_t ignored = call(descriptor, bytes, size > word ? size / 2 : 0);
        static_cast<void>(ignored);
        end();
    }
    return call(descriptor, bytes, size);
}

} // extern "C"
