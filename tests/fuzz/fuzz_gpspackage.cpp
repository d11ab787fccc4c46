// Feeds the package checker. Every build has it, and runs it on the corpus in gpspackage/; to fuzz,
// build it with clang:
//
//     cmake --preset asan -B build/fuzz -DCMAKE_CXX_COMPILER=clang++
//     cmake --build build/fuzz --target fuzz_gpspackage
//     cp -r tests/fuzz/gpspackage /tmp/corpus
//     build/fuzz/tests/fuzz/fuzz_gpspackage -max_len=8192 -max_total_time=600 /tmp/corpus

#include "gps/gpspackage.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{

/// A file in memory that check_file() can open by its path.
class MemoryFile
{
public:
    MemoryFile()
        : m_descriptor(memfd_create("package", MFD_CLOEXEC))
        , m_path("/proc/self/fd/" + std::to_string(m_descriptor))
    {
        // The checker's talk.
        if (std::freopen("/dev/null", "w", stdout) == nullptr) {
            std::abort();
        }
    }

    const char *path() const { return m_path.c_str(); }

    void write(const std::uint8_t *data, std::size_t size) const
    {
        if (ftruncate(m_descriptor, 0) != 0
            || pwrite(m_descriptor, data, size, 0) != static_cast<ssize_t>(size)) {
            std::abort();
        }
    }

private:
    const int m_descriptor;
    const std::string m_path;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const MemoryFile file;
    file.write(data, size);
    const int result = check_file(file.path(), 0xF0F1F2F3);
    if (result != 0 && result != -1) {
        std::abort();
    }
    return 0;
}
