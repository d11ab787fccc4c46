#include "failure.h"

#include "gate.h"

#include "hardware/unit/falliblecall.h"
#include "hardware/unit/gatebypass.h"
#include "hardware/unit/kepterrno.h"
#include "hardware/unit/unit.h"

namespace hardware
{

namespace
{

/// Whether this thread's calls are the plug-in's, and some are to fail.
bool hasFaults()
{
    const Gate *gate = Gate::current();
    return gate != nullptr && !gate->unit().callFaults().isEmpty() && !GateBypass::isActive();
}

QString wantedFailure(const std::string &call, bool *isWanted)
{
    const KeptErrno kept;
    QString failure;
    *isWanted = Gate::current()->unit().callFaults().fails(QString::fromStdString(call), &failure);
    return failure;
}

} // namespace

Failure failureOf(const std::string &call)
{
    bool isWanted = false;
    const QString failure = hasFaults() ? wantedFailure(call, &isWanted) : QString();
    if (!isWanted) {
        return Failure::None;
    }
    if (failure == QLatin1String("short")) {
        return Failure::Short;
    }
    errno = errorNumber(failure);
    return Failure::Error;
}

Failure failureOf(const char *name, int descriptor)
{
    if (!hasFaults()) {
        return Failure::None;
    }
    const QByteArray path = Gate::current()->unit().openFiles().path(descriptor);
    return path.isEmpty() ? Failure::None : failureOf(name + (' ' + path.toStdString()));
}

} // namespace hardware
