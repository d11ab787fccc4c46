#include "simmodulemanager.h"

#include "kvappframework/module.h"

namespace kvappframework
{

SimModuleManager::SimModuleManager() = default;

SimModuleManager::~SimModuleManager() = default;

void SimModuleManager::add(const QString &name, const QSharedPointer<Module> &module)
{
    m_modules.insert(name, module);
}

void SimModuleManager::remove(const QString &name)
{
    m_modules.remove(name);
}

QSharedPointer<Module> SimModuleManager::getModule(const QString &name)
{
    return m_modules.value(name);
}

} // namespace kvappframework
