#include "frameworkhost.h"

#include "infomodule.h"
#include "kvappframework/sysevent.h"
#include "screenlayer.h"
#include "simactivitymanager.h"
#include "simmodulemanager.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace kvappframework
{

namespace
{
FrameworkHost *currentHost = nullptr;
const int keyTone = 0;
} // namespace

FrameworkHost::FrameworkHost(QWidget *screen)
    : m_screen(screen)
    , m_activities(QSharedPointer<SimActivityManager>::create())
    , m_modules(QSharedPointer<SimModuleManager>::create())
    , m_info(QSharedPointer<InfoModule>::create())
{
    for (int layer = UI_HERARCHY_BACKGROUND; layer <= UI_HERARCHY_POPUP; ++layer) {
        m_layers.append(new ScreenLayer(screen));
    }
    m_modules->add(QStringLiteral("info"), m_info);
    qApp->installEventFilter(this);
    currentHost = this;
}

FrameworkHost::~FrameworkHost()
{
    m_activities->closeAll();
    qDeleteAll(m_layers);
    currentHost = nullptr;
}

void FrameworkHost::clearLayers()
{
    for (const ScreenLayer *layer : qAsConst(m_layers)) {
        qDeleteAll(layer->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
    }
}

FrameworkHost *FrameworkHost::current()
{
    if (currentHost == nullptr) {
        qFatal("The framework was called before it was started.");
    }
    return currentHost;
}

SimActivityManager &FrameworkHost::activities()
{
    return *m_activities;
}

SimModuleManager &FrameworkHost::modules()
{
    return *m_modules;
}

void FrameworkHost::requestFactoryDebug()
{
    m_info->trigger();
}

void FrameworkHost::setActivityManager(const QSharedPointer<ActivityManager> &manager)
{
    m_otherManager = manager;
}

QSharedPointer<ActivityManager> FrameworkHost::activityManager() const
{
    return m_otherManager ? m_otherManager : m_activities;
}

QSharedPointer<ModuleManager> FrameworkHost::moduleManager() const
{
    return m_modules;
}

QWidget *FrameworkHost::layer(UIHerarchy herarchy) const
{
    return m_layers.at(herarchy);
}

QRect FrameworkHost::desktopRect() const
{
    return m_screen->rect();
}

/// What the screen's window is told, ahead of the widgets that it then tells.
void FrameworkHost::tellOfTouch(const QObject *window, const QEvent *event) const
{
    const char *what = event->type() == QEvent::MouseButtonPress ? "press"
        : event->type() == QEvent::MouseButtonDblClick           ? "press"
        : event->type() == QEvent::MouseMove                     ? "move"
        : event->type() == QEvent::MouseButtonRelease            ? "release"
                                                                 : nullptr;
    if (what == nullptr || window != m_screen->window()->windowHandle()) {
        return;
    }
    const auto *mouse = static_cast<const QMouseEvent *>(event);
    const QPoint place = m_screen->mapFromGlobal(mouse->globalPos());
    // A pointer that only passes by is no finger.
    const bool isHover = event->type() == QEvent::MouseMove && mouse->buttons() == Qt::NoButton;
    if (!isHover && m_screen->rect().contains(place)) {
        unitlink::unit().journal().write(
            QStringLiteral("touch"),
            QStringLiteral("%1 %2 %3").arg(QLatin1String(what)).arg(place.x()).arg(place.y()));
    }
}

bool FrameworkHost::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == EventType_Beep) {
        unitlink::unit().mcu().beep(keyTone);
    } else if (watched->isWindowType()) {
        tellOfTouch(watched, event);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace kvappframework
