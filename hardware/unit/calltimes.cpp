#include "calltimes.h"

#include <utility>

namespace hardware
{

namespace
{
thread_local CallTimes *ofThisThread = nullptr;
} // namespace

CallTimes::CallTimes()
{
    Q_ASSERT(ofThisThread == nullptr);
    ofThisThread = this;
}

CallTimes::~CallTimes()
{
    ofThisThread = nullptr;
}

QVector<CallTimes::Call> CallTimes::take()
{
    return std::exchange(m_calls, {});
}

bool CallTimes::areWanted()
{
    return ofThisThread != nullptr;
}

void CallTimes::note(const QString &name, double unitSeconds, double hostSeconds)
{
    if (areWanted()) {
        ofThisThread->m_calls.append({name, unitSeconds, hostSeconds, Cause::current()});
    }
}

} // namespace hardware
