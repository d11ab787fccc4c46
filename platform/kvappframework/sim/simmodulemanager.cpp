#include "simmodulemanager.h"

#include "kvappframework/module.h"

#include "unitlink/calls.h"

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

QSharedPointer<Module> SimModuleManager::find(const QString &name) const
{
    return m_modules.value(name);
}

QSharedPointer<Module> SimModuleManager::getModule(const QString &name)
{
    const char call[] = "ModuleManager::getModule";
    const QSharedPointer<Module> found =
        unitlink::fails(call) ? QSharedPointer<Module>() : find(name);
    unitlink::tellOfQuestion(call, unitlink::shown(name),
                             found ? QStringLiteral("a module") : QStringLiteral("none"));
    return found;
}

} // namespace kvappframework
