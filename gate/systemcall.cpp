// The C library's system(), as the whole process calls it while a gate is open.

#include "gate.h"
#include "hostcall.h"

#include "hardware/unit/calltimes.h"
#include "hardware/unit/unit.h"

#include <QElapsedTimer>

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace
{

/// What system() gives for a command that fails like that: one of the failures of "system".
int failedStatus(const QString &failure)
{
    if (failure == QLatin1String("EAGAIN")) {
        errno = EAGAIN;
        return -1;
    }
    if (failure == QLatin1String("killed")) {
        return SIGKILL;
    }
    return (failure.isEmpty() ? 1 : failure.toInt()) << 8;
}

} // namespace

extern "C" int system(const char *command)
{
    const hardware::Gate *gate = hardware::Gate::current();
    if (gate == nullptr || command == nullptr) {
        return hardware::hostCall<::system>(__func__)(command);
    }
    const hardware::Unit &unit = gate->unit();
    const QString call = QStringLiteral("system ") + QString::fromLocal8Bit(command);
    QElapsedTimer taken;
    taken.start();
    QString failure;
    const int status =
        unit.callFaults().fails(call, &failure) ? failedStatus(failure) : unit.shell().run(command);
    const int keptErrno = errno;
    hardware::CallTimes::note(call, taken.nsecsElapsed() / 1e9, taken.nsecsElapsed() / 1e9);
    errno = keptErrno;
    return status;
}
