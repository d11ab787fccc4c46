// The C library's calls on descriptors and mappings, as the whole process makes them while a gate
// is open: of those on the memory device, and of files that are closed, the unit is told. All pass
// through.

#include "failure.h"
#include "gate.h"
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

/// One that is to fail closes all the same, as the kernel does.
template <typename Close> int closed(const char *name, int descriptor, const Close &close)
{
    const hardware::Failure failure = hardware::failureOf(name, descriptor);
    const int reason = errno;
    tellOfClosing(descriptor);
    const int result = close();
    if (failure == hardware::Failure::None) {
        return result;
    }
    errno = reason;
    return -1;
}

template <auto *Call, typename Offset>
void *mapMemory(const char *name, void *place, size_t length, int protection, int flags,
                int descriptor, Offset offset)
{
    MemoryDevice *memory = deviceOpenedAs(descriptor);
    if (memory == nullptr) {
        return hostCall<Call>(name)(place, length, protection, flags, descriptor, offset);
    }
    const hardware::UnitCall call(name, "/dev/mem",
                                  hardware::mapArguments(length, protection, flags));
    void *mapped = MAP_FAILED;
    if (memory->fault() == MemoryDevice::MapRefused) {
        errno = EPERM;
    } else if (!call.mustFail()) {
        mapped = hostCall<Call>(name)(place, length, protection, flags, descriptor, offset);
    }
    call.tell(mapped == MAP_FAILED);
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
    return closed(__func__, descriptor,
                  [descriptor] { return hostCall<::close>("close")(descriptor); });
}

int fclose(FILE *stream)
{
    return closed(__func__, fileno(stream),
                  [stream] { return hostCall<::fclose>("fclose")(stream); });
}

} // extern "C"
