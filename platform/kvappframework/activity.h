#pragma once

#include "kvglobal/kvglobal.h"

#include <QObject>
#include <QSharedPointer>

namespace kvappframework
{

class ActivityProperty;

/// One application of the head unit. The framework finds it in a plug-in, asks for its property
/// and drives its life cycle on the graphical thread. The order of the virtual functions is the
/// framework's binary interface.
class KV_API Activity
{
public:
    virtual ~Activity();

    /// Builds the user interface and names it with ActivityProperty::setUiObj(); 0 on success.
    virtual int onCreat() = 0;
    /// Takes the user interface down again; 0 on success.
    virtual int onDestory() = 0;
    /// Comes to the front; 0 on success.
    virtual int onStart() = 0;
    /// Goes to the back; 0 on success.
    virtual int onStop() = 0;
    virtual QSharedPointer<ActivityProperty> getProperty() = 0;
};

} // namespace kvappframework

Q_DECLARE_INTERFACE(kvappframework::Activity, "activity/0.1")
