#pragma once

#include "kvappframework/activityproperty.h"

/// What the factory-debug activity tells the framework about itself.
class FactoryDebugProperty : public kvappframework::ActivityProperty
{
public:
    explicit FactoryDebugProperty(QStringList &dependModules);
    ~FactoryDebugProperty() override;

    QString getDispString() const override;
    /// Always "mediaplay" alone, whatever list the property was constructed with.
    QSharedPointer<QStringList> getDependModules() const override;
};
