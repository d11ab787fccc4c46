#pragma once

#include "kvappframework/modulemanager.h"

#include <QHash>

namespace kvappframework
{

/// The simulated framework's modules by name.
class KV_API SimModuleManager : public ModuleManager
{
public:
    SimModuleManager();
    ~SimModuleManager() override;

    void add(const QString &name, const QSharedPointer<Module> &module);
    void remove(const QString &name);

    /// For the framework itself; null when there is none of that name.
    QSharedPointer<Module> find(const QString &name) const;

    /// For the activities. Journal: asked ModuleManager::getModule("<name>") = a module|none.
    QSharedPointer<Module> getModule(const QString &name) override;

private:
    QHash<QString, QSharedPointer<Module>> m_modules;
};

} // namespace kvappframework
