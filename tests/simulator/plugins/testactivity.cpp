// An activity with a handful of buttons, each of which does one thing that the simulator has to
// cope with.

#include "kvappframework/activity.h"
#include "kvappframework/activityproperty.h"
#include "kvappframework/eventprivatedata.h"
#include "kvappframework/module.h"
#include "kvappframework/modulemanager.h"
#include "kvappframework/sysevent.h"
#include "kvappframework/uimanager.h"
#include "mcu/cmsgclass.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLabel>
#include <QPushButton>

#include <unistd.h>

using namespace kvappframework;

namespace
{

const int blockedMicroseconds = 3000000;

/// Of the process, not of the activity: a restart of the unit has to set it back.
int presses = 0;

/// A window of its own, as some pages of the unit's software are.
class TestPage : public QLabel
{
public:
    TestPage()
        : QLabel(QStringLiteral("page of its own"))
    {
        setGeometry(UIManager::getDeskTopRect());
        setAutoFillBackground(true);
    }

    ~TestPage() override { qDebug() << "~TestPage"; }
};

class TestView : public QWidget
{
public:
    explicit TestView(QWidget *parent)
        : QWidget(parent)
        , m_label(new QLabel(QStringLiteral("test activity"), this))
    {
        setGeometry(UIManager::getDeskTopRect());
        setAutoFillBackground(true);
        m_label->setGeometry(20, 20, 400, 40);
        addButton("count", 100, [this] {
            ++presses;
            m_label->setText(QStringLiteral("presses: %1").arg(presses));
        });
        addButton("block", 160, [this] {
            m_label->setText(QStringLiteral("blocked"));
            repaint();
            qDebug() << "blocking";
            usleep(blockedMicroseconds);
            qDebug() << "blocked no more";
        });
        addButton("hang", 340, [] {
            qDebug() << "hanging";
            while (true) {
                pause();
            }
        });
        addButton("page", 220, [] {
            auto *page = new TestPage;
            page->show();
            page->raise();
        });
        addButton("restart", 280, [] {
            CMsgClass::getInstance()->setSysReboot();
            qDebug() << "still here";
        });
    }

private:
    template <typename Function> void addButton(const char *id, int top, Function function)
    {
        auto *button = new QPushButton(QString::fromLatin1(id), this);
        button->setProperty("buttonID", QString::fromLatin1(id));
        button->setGeometry(20, top, 200, 50);
        connect(button, &QPushButton::clicked, this, function);
    }

    QLabel *m_label;
};

} // namespace

/// The name of the class is the one that the framework asks for.
class FactoryDebugctivity : public QObject, public Activity
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "activity/0.1")
    Q_INTERFACES(kvappframework::Activity)

public:
    FactoryDebugctivity()
    {
        QStringList dependModules;
        m_property.reset(new ActivityProperty(
            QStringLiteral("factorydebug"), ACTVITY_TYPE_APP, QSharedPointer<ActivityEventCbk>(),
            dependModules, TRIGGER_PRIORITY_DEBUG, ANM_TYPE_NONE, ACTVITY_RESUME_TYPE_NONE));
        const auto rule = QSharedPointer<EventPrivateData>::create(
            QStringLiteral("factorydebug"), QVariant(QStringLiteral("mediaplay")));
        const QSharedPointer<Module> info =
            ModuleManager::self()->getModule(QStringLiteral("info"));
        QCoreApplication::postEvent(
            info->getReceiver(),
            new SysEvent(UserType, SysEvent::EventImplicitRule, false, SysEvent::NoArgument, rule));
    }

    ~FactoryDebugctivity() override { qDebug() << "~FactoryDebugctivity"; }

    int onCreat() override
    {
        m_view = new TestView(UIManager::getUIHerarchy(UI_HERARCHY_ACTIVITY));
        m_property->setUiObj(m_view);
        m_view->show();
        return 0;
    }

    int onDestory() override
    {
        delete m_view;
        return 0;
    }

    int onStart() override { return 0; }
    int onStop() override { return 0; }
    QSharedPointer<ActivityProperty> getProperty() override { return m_property; }

private:
    QSharedPointer<ActivityProperty> m_property;
    TestView *m_view = nullptr;
};

#include "testactivity.moc"
