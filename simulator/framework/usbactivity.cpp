#include "usbactivity.h"

#include "usbview.h"

#include "kvappframework/activityproperty.h"
#include "kvappframework/sim/frameworkhost.h"
#include "kvappframework/sim/simactivitymanager.h"

using namespace kvappframework;

namespace simulator
{

UsbActivity::UsbActivity()
{
    QStringList dependModules;
    m_property = QSharedPointer<ActivityProperty>::create(
        QStringLiteral("usb"), ACTVITY_TYPE_APP, QSharedPointer<ActivityEventCbk>(), dependModules,
        TRIGGER_PRIORITY_DEBUG, ANM_TYPE_NONE, ACTVITY_RESUME_TYPE_NONE);
}

UsbActivity::~UsbActivity() = default;

int UsbActivity::onCreat()
{
    auto *view = new UsbView(UIManager::getUIHerarchy(UI_HERARCHY_ACTIVITY));
    m_property->setUiObj(view);
    view->show();
    return 0;
}

int UsbActivity::onDestory()
{
    delete m_property->getUiObj();
    m_property->setUiObj(nullptr);
    return 0;
}

int UsbActivity::onStart()
{
    auto *view = static_cast<UsbView *>(m_property->getUiObj());
    view->setArgument(FrameworkHost::current()->activities().argument(m_property->getName()));
    view->raise();
    return 0;
}

int UsbActivity::onStop()
{
    return 0;
}

QSharedPointer<ActivityProperty> UsbActivity::getProperty()
{
    return m_property;
}

} // namespace simulator
