#include "deadline.h"

#include <sys/time.h>

namespace
{

std::time_t currentSecond()
{
    timeval now;
    gettimeofday(&now, nullptr);
    return now.tv_sec;
}

} // namespace

Deadline::Deadline()
    : m_lastSecond(currentSecond() + seconds)
{
}

bool Deadline::hasPassed() const
{
    return currentSecond() > m_lastSecond;
}
