#include "recordedpriority.h"

#include <sched.h>

#include <cerrno>

namespace
{

bool isGranted = true;

QString &last()
{
    static QString made;
    return made;
}

} // namespace

QString RecordedPriority::asked()
{
    return last();
}

void RecordedPriority::restart(bool isGrantedNow)
{
    last().clear();
    isGranted = isGrantedNow;
}

extern "C" int sched_setscheduler(pid_t pid, int policy, const sched_param *parameters) noexcept
{
    last() = QStringLiteral("%1 %2 %3").arg(pid).arg(policy).arg(parameters->sched_priority);
    errno = isGranted ? 0 : EPERM;
    return isGranted ? 0 : -1;
}
