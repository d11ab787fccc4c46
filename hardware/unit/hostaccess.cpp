#include "hostaccess.h"

namespace hardware
{

namespace
{
thread_local int depth = 0;
}

HostAccess::HostAccess()
{
    ++depth;
}

HostAccess::~HostAccess()
{
    --depth;
}

bool HostAccess::isActive()
{
    return depth > 0;
}

} // namespace hardware
