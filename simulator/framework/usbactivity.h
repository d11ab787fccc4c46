#pragma once

#include "kvappframework/activity.h"

namespace simulator
{

/// The activity "usb", which plays media from USB sticks on a real unit. Here it only says that it
/// runs and what it was started with.
class UsbActivity : public kvappframework::Activity
{
public:
    UsbActivity();
    ~UsbActivity() override;

    int onCreat() override;
    int onDestory() override;
    int onStart() override;
    int onStop() override;
    QSharedPointer<kvappframework::ActivityProperty> getProperty() override;

private:
    QSharedPointer<kvappframework::ActivityProperty> m_property;
};

} // namespace simulator
