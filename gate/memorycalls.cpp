// The C library's calls on descriptors and mappings, as the whole process makes them while a gate
// is open: of those on the memory device, and of files that are closed, the unit is told. All pass
// through.

#include "gate.h"
#include "hostcall.h"
#include "unitcall.h"

#include "hardware/unit/gatebypass.h"
#include "hardware/unit/unit.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

using hardware::hostCall;
using hardware::MemoryDevice;

namespace
{

MemoryDevice *device()
{
    const hardware::Gate *gate = hardware::Gate::current();
    return gate == nullptr || hardware::GateBypass::isActive() ? nullptr
                                                               : &gate->unit().memoryDevice();
}

MemoryDevice *deviceOpenedAs(int descriptor)
{
    MemoryDevice *found = device();
    return found != nullptr && found->isOpen(descriptor) ? found : nullptr;
}

MemoryDevice *deviceMappedAt(const void *place)
{
    MemoryDevice *found = device();
    return found != nullptr && found->isMapped(place) ? found : nullptr;
}

/// Before the host closes it, since another thread may then be given the same number.
void tellOfClosing(int descriptor)
{
    const hardware::Gate *gate = hardware::Gate::current();
    if (gate != nullptr) {
        gate->unit().openFiles().closing(descriptor);
    }
}

template <auto *Call, typename Offset>
void *mapMemory(const char *name, void *place, size_t length, int protection, int flags,
                int descriptor, Offset offset)
{
    MemoryDevice *memory = deviceOpenedAs(descriptor);
    if (memory == nullptr) {
        return hostCall<Call>(name)(place, length, protection, flags, descriptor, offset);
    }
    void *mapped = MAP_FAILED;
    if (memory->fault() == MemoryDevice::MapRefused) {
        errno = EPERM;
    } else {
        mapped = hostCall<Call>(name)(place, length, protection, flags, descriptor, offset);
    }
    hardware::UnitCall("mmap", "/dev/mem", hardware::mapFlags(protection, flags))
        .tell(mapped == MAP_FAILED);
    memory->mapped(mapped == MAP_FAILED ? nullptr : mapped, length, quint32(offset));
    return mapped;
}

} // namespace

extern "C" {

void *mmap(void *place, size_t length, int protection, int flags, int descriptor,
           off_t offset) noexcept
{
    return mapMemory<::mmap>(__func__, place, length, protection, flags, descriptor, offset);
}

void *mmap64(void *place, size_t length, int protection, int flags, int descriptor,
             off64_t offset) noexcept
{
    return mapMemory<::mmap64>(__func__, place, length, protection, flags, descriptor, offset);
}

int munmap(void *place, size_t length) noexcept
{
    MemoryDevice *memory = deviceMappedAt(place);
    const int result = hostCall<::munmap>(__func__)(place, length);
    if (memory != nullptr) {
        memory->unmapped(place, result == 0);
    }
    return result;
}

int close(int descriptor)
{
    MemoryDevice *memory = deviceOpenedAs(descriptor);
    if (memory != nullptr) {
        memory->closing(descriptor);
    }
    tellOfClosing(descriptor);
    return hostCall<::close>(__func__)(descriptor);
}

int fclose(FILE *stream)
{
    tellOfClosing(fileno(stream));
    return hostCall<::fclose>(__func__)(stream);
}

} // extern "C"
