#pragma once

#include "kvappframework/activity.h"

#include <QObject>

/// The plug-in's one object. The framework knows it by this very class name.
class FactoryDebugctivity : public QObject, public kvappframework::Activity
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "activity/0.1")
    Q_INTERFACES(kvappframework::Activity)

public:
    /// Asks the "info" module, if there is one, to start this activity on the factory-debug
    /// request.
    FactoryDebugctivity();
    ~FactoryDebugctivity() override;

    int onStart() override;
    int onStop() override;
    /// Builds and shows the main view on the activities' layer.
    int onCreat() override;
    /// Deletes the main view and every page on it; nothing without a view.
    int onDestory() override;
    QSharedPointer<kvappframework::ActivityProperty> getProperty() override;

private:
    Q_DISABLE_COPY(FactoryDebugctivity)

    void registerImplicitRule();

    QSharedPointer<kvappframework::ActivityProperty> m_property;
};
