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

    QSharedPointer<Module> getModule(const QString &name) override;

private:
    QHash<QString, QSharedPointer<Module>> m_modules;
};

} // namespace kvappframework
