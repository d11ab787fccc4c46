#include "cause.h"

namespace hardware
{

namespace
{
thread_local Cause causeOfThisThread;
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
    return causeOfThisThread;
}

CauseScope::CauseScope(const Cause &cause)
    : m_former(causeOfThisThread)
{
    causeOfThisThread = cause;
}

CauseScope::~CauseScope()
{
    causeOfThisThread = m_former;
}

} // namespace hardware
