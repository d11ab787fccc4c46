#pragma once

#include "kvglobal/kvglobal.h"

#include <QSharedPointer>
#include <QString>

namespace kvappframework
{

/// Starts and closes activities by name. Graphical thread only.
class KV_API ActivityManager
{
public:
    /// The framework's one manager; never null while the framework runs.
    static QSharedPointer<ActivityManager> self();

    virtual ~ActivityManager();

    /// Asks for an activity to be created and brought to the front; \a argument is handed to it.
    /// Returns at once: 0, or -1 for a name that the framework does not know.
    virtual int startActivity(const QString &name, int argument) = 0;

    /// Asks for an activity to be stopped and destroyed. Returns at once: 0, or -1 for a name that
    /// the framework does not know.
    virtual int closeActivity(const QString &name) = 0;
};

} // namespace kvappframework
