// The calls that read what is open: from a slow stick they take their time, in the unit's time, as
// long as the bytes do that they give.

#include "gate.h"
#include "hostcall.h"

#include "hardware/unit/kepterrno.h"
#include "hardware/unit/unit.h"

#include <unistd.h>

#include <cstdio>

using hardware::hostCall;

namespace
{

constexpr qint64 usPerSecond = 1000000;

void takeTime(int descriptor, qint64 bytes)
{
    const hardware::Gate *gate = hardware::Gate::current();
    if (gate == nullptr || bytes <= 0) {
        return;
    }
    const hardware::KeptErrno kept;
    const hardware::Unit &unit = gate->unit();
    const QByteArray path = unit.openFiles().path(descriptor);
    const int speed = path.isEmpty() ? 0 : unit.storage().traitAt(path, hardware::StickTrait::Slow);
    if (speed != 0) {
        unit.clock().sleep(bytes * usPerSecond / speed);
    }
}

template <auto *Call, typename... Limit>
ssize_t readFrom(const char *name, int descriptor, void *bytes, size_t size, Limit... limit)
{
    const ssize_t count = hostCall<Call>(name)(descriptor, bytes, size, limit...);
    takeTime(descriptor, count);
    return count;
}

} // namespace

extern "C" {

// Not declared by the headers.
// NOLINTBEGIN(bugprone-reserved-identifier)
ssize_t __read_chk(int descriptor, void *bytes, size_t size, size_t limit);
size_t __fread_chk(void *bytes, size_t limit, size_t size, size_t count, FILE *stream);
// NOLINTEND(bugprone-reserved-identifier)

ssize_t read(int descriptor, void *bytes, size_t size)
{
    return readFrom<::read>(__func__, descriptor, bytes, size);
}

ssize_t __read_chk(int descriptor, void *bytes, size_t size, size_t limit)
{
    return readFrom<::__read_chk>(__func__, descriptor, bytes, size, limit);
}

size_t fread(void *bytes, size_t size, size_t count, FILE *stream)
{
    const size_t given = hostCall<::fread>(__func__)(bytes, size, count, stream);
    takeTime(fileno(stream), qint64(given * size));
    return given;
}

size_t __fread_chk(void *bytes, size_t limit, size_t size, size_t count, FILE *stream)
{
    const size_t given = hostCall<::__fread_chk>(__func__)(bytes, limit, size, count, stream);
    takeTime(fileno(stream), qint64(given * size));
    return given;
}

} // extern "C"
