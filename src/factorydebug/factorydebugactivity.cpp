#include "factorydebugactivity.h"

#include "factorydebugproperty.h"
#include "factorydebugview.h"

#include "common/trace.h"

#include "kvappframework/eventprivatedata.h"
#include "kvappframework/module.h"
#include "kvappframework/modulemanager.h"
#include "kvappframework/sysevent.h"
#include "kvappframework/uimanager.h"

#include <QCoreApplication>

using namespace kvappframework;

namespace
{

constexpr auto activityLayer = static_cast<UIHerarchy>(1);
constexpr int implicitRule = 14; // the event's id
constexpr int noArgument = -1;

} // namespace

FactoryDebugctivity::FactoryDebugctivity()
{
    FACTORY_TRACE << "FactoryDebugctivity";
    QStringList dependModules((QString()));
    m_property = QSharedPointer<FactoryDebugProperty>(new FactoryDebugProperty(dependModules));
    registerImplicitRule();
}

FactoryDebugctivity::~FactoryDebugctivity()
{
    FACTORY_TRACE << "~FactoryDebugctivity";
}

int FactoryDebugctivity::onStart()
{
    return 0;
}

int FactoryDebugctivity::onStop()
{
    return 0;
}

int FactoryDebugctivity::onCreat()
{
    auto *view = new FactoryDebugView(UIManager::getUIHerarchy(activityLayer));
    m_property->setUiObj(view);
    view->show();
    view->setFocusPolicy(Qt::StrongFocus);
    view->setFocus(Qt::OtherFocusReason);
    return 0;
}

int FactoryDebugctivity::onDestory()
{
    // The property keeps its reference: the framework replaces it with the next onCreat().
    delete m_property->getUiObj();
    return 0;
}

QSharedPointer<ActivityProperty> FactoryDebugctivity::getProperty()
{
    return m_property;
}

void FactoryDebugctivity::registerImplicitRule()
{
    const QSharedPointer<Module> info = ModuleManager::self()->getModule(QStringLiteral("info"));
    if (info.isNull()) {
        return;
    }
    const QSharedPointer<EventPrivateData> rule(new EventPrivateData(
        QStringLiteral("factorydebug"), QVariant(QStringLiteral("mediaplay"))));
    auto *event = new SysEvent(UserType, implicitRule, QVariant(false), noArgument, rule);
    QCoreApplication::postEvent(info->getReceiver(), event, 0);
}
