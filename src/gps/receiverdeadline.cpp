#include "receiverdeadline.h"

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

ReceiverDeadline::ReceiverDeadline()
    : m_lastSecond(currentSecond() + seconds)
{
}

bool ReceiverDeadline::hasPassed() const
{
    return currentSecond() > m_lastSecond;
}
