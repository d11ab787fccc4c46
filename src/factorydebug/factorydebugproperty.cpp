#include "factorydebugproperty.h"

#include <QObject>

using namespace kvappframework;

FactoryDebugProperty::FactoryDebugProperty(QStringList &dependModules)
    : ActivityProperty(QStringLiteral("factorydebug"), ACTVITY_TYPE_APP,
                       QSharedPointer<ActivityEventCbk>(), dependModules, TRIGGER_PRIORITY_DEBUG,
                       ANM_TYPE_NONE, ACTVITY_RESUME_TYPE_NONE)
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
