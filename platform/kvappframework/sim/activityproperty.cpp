#include "kvappframework/activityproperty.h"

namespace kvappframework
{

ActivityEventCbk::~ActivityEventCbk() = default;

ActivityProperty::ActivityProperty(const QString &name, ACTVITY_TYPE type,
                                   QSharedPointer<ActivityEventCbk> callback,
                                   QStringList &dependModules, TRIGGER_PRIORITY priority,
                                   AnmType anm, ACTVITY_RESUME_TYPE resume)
    : m_name(name)
    , m_type(type)
    , m_callback(callback)
    , m_dependModules(dependModules)
    , m_priority(priority)
    , m_anm(anm)
    , m_resume(resume)
    , m_uiObj(nullptr)
    , m_eventFilter(nullptr)
{
}

ActivityProperty::~ActivityProperty() = default;

QString ActivityProperty::getDispString() const
{
    return m_name;
}

QSharedPointer<QStringList> ActivityProperty::getDependModules() const
{
    return QSharedPointer<QStringList>::create(m_dependModules);
}

void ActivityProperty::setUiObj(QWidget *uiObj)
{
    m_uiObj = uiObj;
}

QWidget *ActivityProperty::getUiObj()
{
    return m_uiObj;
}

void ActivityProperty::setEventFilter(QObject *eventFilter)
{
    m_eventFilter = eventFilter;
}

QObject *ActivityProperty::getEventFilter()
{
    return m_eventFilter;
}

void ActivityProperty::setPriority(TRIGGER_PRIORITY priority)
{
    m_priority = priority;
}

TRIGGER_PRIORITY ActivityProperty::getPriority()
{
    return m_priority;
}

AnmType ActivityProperty::getAnmType()
{
    return m_anm;
}

bool ActivityProperty::needPowerResume()
{
    return m_resume != ACTVITY_RESUME_TYPE_NONE;
}

QSharedPointer<ActivityEventCbk> ActivityProperty::getCbk()
{
    return m_callback;
}

QVariant ActivityProperty::getActivitySpecialInfo(ACTIVITY_INFO_TYPE type)
{
    Q_UNUSED(type);
    return QVariant();
}

QString ActivityProperty::getName() const
{
    return m_name;
}

ACTVITY_TYPE ActivityProperty::getType() const
{
    return m_type;
}

} // namespace kvappframework
