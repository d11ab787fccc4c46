#pragma once

#include "kvappframework/activity.h"
#include "kvappframework/activityproperty.h"

#include <QStringList>

/// An activity that writes down how it is driven.
class TestActivity : public kvappframework::Activity
{
public:
    explicit TestActivity(const QString &name, QStringList dependModules = QStringList())
        : m_property(new kvappframework::ActivityProperty(
            name, kvappframework::ACTVITY_TYPE_APP, nullptr, dependModules,
            kvappframework::TRIGGER_PRIORITY_DEBUG, kvappframework::ANM_TYPE_NONE,
            kvappframework::ACTVITY_RESUME_TYPE_NONE))
    {
    }

    int onCreat() override { return note("onCreat"); }
    int onDestory() override { return note("onDestory"); }
    int onStart() override { return note("onStart"); }
    int onStop() override { return note("onStop"); }
    QSharedPointer<kvappframework::ActivityProperty> getProperty() override { return m_property; }

    QStringList calls;

private:
    int note(const char *call)
    {
        calls.append(QLatin1String(call));
        return 0;
    }

    QSharedPointer<kvappframework::ActivityProperty> m_property;
};
