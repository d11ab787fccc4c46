#pragma once

#include "kvappframework/activity.h"
#include "kvappframework/activityproperty.h"
#include "kvappframework/uimanager.h"

#include <QWidget>

/// The least that an activity can be: one widget of the screen's size.
class PlainActivity : public QObject, public kvappframework::Activity
{
public:
    PlainActivity()
    {
        QStringList modules;
        m_property = QSharedPointer<kvappframework::ActivityProperty>::create(
            QStringLiteral("plain"), kvappframework::ACTVITY_TYPE_APP, nullptr, modules,
            kvappframework::TRIGGER_PRIORITY_DEBUG, kvappframework::ANM_TYPE_NONE,
            kvappframework::ACTVITY_RESUME_TYPE_NONE);
    }

    int onCreat() override
    {
        using namespace kvappframework;
        auto *view = new QWidget(UIManager::getUIHerarchy(UI_HERARCHY_ACTIVITY));
        view->setGeometry(0, 0, 800, 480);
        view->setAutoFillBackground(true);
        furnish(view);
        m_property->setUiObj(view);
        view->show();
        return 0;
    }

    int onDestory() override
    {
        delete m_property->getUiObj();
        return 0;
    }

    int onStart() override { return 0; }
    int onStop() override { return 0; }
    QSharedPointer<kvappframework::ActivityProperty> getProperty() override { return m_property; }

protected:
    virtual void furnish(QWidget *view) = 0;

private:
    QSharedPointer<kvappframework::ActivityProperty> m_property;
};
