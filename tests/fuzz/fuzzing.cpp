#include "fuzzing.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

MemoryFile::MemoryFile()
    : m_descriptor(memfd_create("fuzzed", MFD_CLOEXEC))
    , m_path("/proc/self/fd/" + std::to_string(m_descriptor))
{
}

MemoryFile::~MemoryFile()
{
    close(m_descriptor);
}

void MemoryFile::write(const std::uint8_t *data, std::size_t size) const
{
    require(ftruncate(m_descriptor, 0) == 0
                && pwrite(m_descriptor, data, size, 0) == static_cast<ssize_t>(size),
            "a file in memory can be written");
}

void silence()
{
    require(std::freopen("/dev/null", "w", stdout) != nullptr, "there is a null device");
}

void require(bool holds, const char *what)
{
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s.\n", what);
        std::abort();
    }
}

// What a fuzzer writes need not outlast it, and waiting for the disk would take most of its time.
int fsync(int)
{
    return 0;
}

int fdatasync(int)
{
    return 0;
}
