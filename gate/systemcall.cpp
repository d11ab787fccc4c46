// The C library's system(), as the whole process calls it while a gate is open.

#include "gate.h"
#include "hostcall.h"

#include "hardware/unit/calltimes.h"
#include "hardware/unit/unit.h"

#include <QElapsedTimer>

#include <cerrno>
#include <cstdlib>

namespace
{
constexpr int failed = 1 << 8; // the command has ended with 1
}

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
    const int status = unit.callFaults().fails(call) ? failed : unit.shell().run(command);
    const int keptErrno = errno;
    hardware::CallTimes::note(call, taken.nsecsElapsed() / 1e9, taken.nsecsElapsed() / 1e9);
    errno = keptErrno;
    return status;
}
