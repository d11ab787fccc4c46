#include "kvappframework/activitymanager.h"

#include "frameworkhost.h"

namespace kvappframework
{

ActivityManager::~ActivityManager() = default;

QSharedPointer<ActivityManager> ActivityManager::self()
{
    return FrameworkHost::current()->activityManager();
}

} // namespace kvappframework
