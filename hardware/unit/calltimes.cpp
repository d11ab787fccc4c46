#include "calltimes.h"

#include <utility>

namespace hardware
{

namespace
{
thread_local CallTimes *timesOfThisThread = nullptr;
} // namespace

CallTimes::CallTimes()
{
    Q_ASSERT(timesOfThisThread == nullptr);
    timesOfThisThread = this;
}

CallTimes::~CallTimes()
{
    timesOfThisThread = nullptr;
}

QVector<CallTimes::Call> CallTimes::take()
{
    return std::exchange(m_calls, {});
}

bool CallTimes::areWanted()
{
    return timesOfThisThread != nullptr;
}

void CallTimes::note(const QString &name, double unitSeconds, double hostSeconds)
{
    if (areWanted()) {
        timesOfThisThread->m_calls.append({name, unitSeconds, hostSeconds, Cause::current()});
    }
}

} // namespace hardware
