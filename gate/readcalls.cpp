// The calls that read what is open, unless somebody wants them to fail: from a slow stick they take
// their time, in the unit's time, as long as the bytes do that they give.

#include "failure.h"
#include "gate.h"

#include "hardware/unit/kepterrno.h"
#include "hardware/unit/unit.h"

#include <unistd.h>

#include <cstdio>

using hardware::asked;
using hardware::Failure;
using hardware::failureOf;
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
    const Failure failure = failureOf("read", descriptor);
    if (failure == Failure::Error) {
        return -1;
    }
    const ssize_t count = hostCall<Call>(name)(descriptor, bytes, asked(failure, size), limit...);
    takeTime(descriptor, count);
    return count;
}

/// Gives fewer items where it is to fail; \a read reads so many.
template <typename Read>
size_t readStream(FILE *stream, size_t size, size_t count, const Read &read)
{
    const Failure failure = failureOf("fread", fileno(stream));
    const size_t given = failure == Failure::Error ? 0 : read(asked(failure, count));
    takeTime(fileno(stream), qint64(given) * qint64(size));
    return given;
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
    return readStream(stream, size, count, [&](size_t wanted) {
        return hostCall<::fread>("fread")(bytes, size, wanted, stream);
    });
}

size_t __fread_chk(void *bytes, size_t limit, size_t size, size_t count, FILE *stream)
{
    return readStream(stream, size, count, [&](size_t wanted) {
        return hostCall<::__fread_chk>("__fread_chk")(bytes, limit, size, wanted, stream);
    });
}

} // extern "C"
