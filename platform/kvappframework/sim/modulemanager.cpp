#include "kvappframework/modulemanager.h"

#include "frameworkhost.h"

namespace kvappframework
{

ModuleManager::~ModuleManager() = default;

QSharedPointer<ModuleManager> ModuleManager::self()
{
    return FrameworkHost::current()->moduleManager();
}

} // namespace kvappframework
