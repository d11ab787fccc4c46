#pragma once

#include "kvglobal/kvglobal.h"

#include <QSharedPointer>
#include <QString>

namespace kvappframework
{

class Module;

/// Holds the framework's modules. Graphical thread only.
class KV_API ModuleManager
{
public:
    /// The framework's one manager; never null while the framework runs.
    static QSharedPointer<ModuleManager> self();

    virtual ~ModuleManager();

    /// The module of that name, or null.
    virtual QSharedPointer<Module> getModule(const QString &name) = 0;
};

} // namespace kvappframework
