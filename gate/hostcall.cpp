#include "hostcall.h"

#include <dlfcn.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace hardware
{

void *hostFunction(const char *name)
{
    const int keptErrno = errno;
    void *function = dlsym(RTLD_NEXT, name);
    if (function == nullptr) {
        std::fprintf(stderr, "The C library has no function %s to pass a call on to.\n", name);
        std::abort();
    }
    errno = keptErrno;
    return function;
}

} // namespace hardware
