// The calls on what is open that set it up or write to it, and the one that asks for a priority:
// each passes through unless somebody wants it to fail.

#include "failure.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cstdarg>

using hardware::asked;
using hardware::Failure;
using hardware::failureOf;
using hardware::hostCall;
using hardware::onDescriptor;

extern "C" {

// Their third argument is a number or a pointer, or is not there; what is handed on is as wide as
// either.

int fcntl(int descriptor, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    return onDescriptor<::fcntl>(__func__, descriptor, command, argument);
}

int ioctl(int descriptor, unsigned long request, ...) noexcept
{
    va_list arguments;
    va_start(arguments, request);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    return onDescriptor<::ioctl>(__func__, descriptor, request, argument);
}

ssize_t write(int descriptor, const void *bytes, size_t size)
{
    const Failure failure = failureOf(__func__, descriptor);
    return failure == Failure::Error
        ? -1
        : hostCall<::write>(__func__)(descriptor, bytes, asked(failure, size));
}

int tcgetattr(int descriptor, termios *attributes) noexcept
{
    return onDescriptor<::tcgetattr>(__func__, descriptor, attributes);
}

int tcsetattr(int descriptor, int when, const termios *attributes) noexcept
{
    return onDescriptor<::tcsetattr>(__func__, descriptor, when, attributes);
}

int tcdrain(int descriptor)
{
    return onDescriptor<::tcdrain>(__func__, descriptor);
}

int tcflush(int descriptor, int queue) noexcept
{
    return onDescriptor<::tcflush>(__func__, descriptor, queue);
}

int sched_setscheduler(pid_t process, int policy, const sched_param *parameters) noexcept
{
    return failureOf(__func__) == Failure::Error
        ? -1
        : hostCall<::sched_setscheduler>(__func__)(process, policy, parameters);
}

} // extern "C"
