#include "kvappframework/activity.h"
#include "kvappframework/activityproperty.h"
#include "kvappframework/uimanager.h"

#include <QWidget>

using namespace kvappframework;

/// The least that an activity can be: one empty widget of the screen's size.
class TrivialActivity : public QObject, public Activity
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "activity/0.1")
    Q_INTERFACES(kvappframework::Activity)

public:
    TrivialActivity()
    {
        QStringList modules;
        m_property = QSharedPointer<ActivityProperty>::create(
            QStringLiteral("trivial"), ACTVITY_TYPE_APP, nullptr, modules, TRIGGER_PRIORITY_DEBUG,
            ANM_TYPE_NONE, ACTVITY_RESUME_TYPE_NONE);
    }

    int onCreat() override
    {
        auto *view = new QWidget(UIManager::getUIHerarchy(UI_HERARCHY_ACTIVITY));
        view->setGeometry(0, 0, 800, 480);
        view->setAutoFillBackground(true);
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
    QSharedPointer<ActivityProperty> getProperty() override { return m_property; }

private:
    QSharedPointer<ActivityProperty> m_property;
};

#include "trivialactivity.moc"
