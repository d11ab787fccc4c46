#include "factorydebugproperty.h"

#include <QObject>

using namespace kvappframework;

namespace
{

constexpr auto activityType = static_cast<ACTVITY_TYPE>(0);
constexpr auto triggerPriority = static_cast<TRIGGER_PRIORITY>(4);
constexpr auto withoutAnimation = static_cast<AnmType>(0);
constexpr auto withoutResume = static_cast<ACTVITY_RESUME_TYPE>(0);

} // namespace

FactoryDebugProperty::FactoryDebugProperty(QStringList &dependModules)
    : ActivityProperty(QStringLiteral("factorydebug"), activityType,
                       QSharedPointer<ActivityEventCbk>(), dependModules, triggerPriority,
                       withoutAnimation, withoutResume)
{
}

FactoryDebugProperty::~FactoryDebugProperty() = default;

QString FactoryDebugProperty::getDispString() const
{
    return QObject::tr("FactoryDebug");
}

QSharedPointer<QStringList> FactoryDebugProperty::getDependModules() const
{
    return QSharedPointer<QStringList>(new QStringList(QStringLiteral("mediaplay")));
}
