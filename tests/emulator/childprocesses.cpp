// Has Qt start processes by fork(), as it does on kernels that have no descriptors for processes:
// the emulator passes on the question whether there are such, but cannot make any. Without this Qt
// takes -1 for the process that it did not get, and kills it in the end, which is all of the
// user's.

#include <array>
#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <sys/syscall.h>
#include <sys/wait.h>

extern "C" long syscall(long number, ...)
{
    std::array<long, 6> values{};
    std::va_list list;
    va_start(list, number);
    for (long &value : values) {
        value = va_arg(list, long);
    }
    va_end(list);
    if (number == SYS_waitid && values[0] == P_PIDFD) {
        errno = EINVAL;
        return -1;
    }
    static const auto next = reinterpret_cast<decltype(&syscall)>(dlsym(RTLD_NEXT, "syscall"));
    return next(number, values[0], values[1], values[2], values[3], values[4], values[5]);
}
