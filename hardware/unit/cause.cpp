#include "cause.h"

namespace hardware
{

namespace
{
thread_local Cause ofThisThread;
} // namespace

Cause Cause::begun(const QString &line)
{
    Cause cause;
    cause.m_origin = std::make_shared<Origin>();
    cause.m_origin->line = line;
    return cause;
}

Cause Cause::current()
{
    return ofThisThread;
}

CauseScope::CauseScope(const Cause &cause)
    : m_former(ofThisThread)
{
    ofThisThread = cause;
}

CauseScope::~CauseScope()
{
    ofThisThread = m_former;
}

} // namespace hardware
