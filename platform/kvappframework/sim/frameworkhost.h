#pragma once

#include "kvappframework/uimanager.h"
#include "kvglobal/kvglobal.h"

#include <QList>
#include <QObject>
#include <QSharedPointer>

class QWidget;

namespace kvappframework
{

class ActivityManager;
class InfoModule;
class ModuleManager;
class ScreenLayer;
class SimActivityManager;
class SimModuleManager;

/// The simulated framework as the program around it sees it (activities never include this): it
/// makes the layers on a screen, and ActivityManager::self(), ModuleManager::self() and UIManager
/// answer through it. One at a time, on the graphical thread, made after the simulated unit.
class KV_API FrameworkHost : public QObject
{
    Q_OBJECT

public:
    /// Makes the layers as children of \a screen, each as large as the screen.
    explicit FrameworkHost(QWidget *screen);
    ~FrameworkHost() override;

    SimActivityManager &activities();
    SimModuleManager &modules();

    /// Deletes what lies on the layers: what nobody deletes goes when the unit restarts.
    void clearLayers();

    /// The hard key or key combination that asks for the factory-debug screen: the "info" module
    /// starts the activities whose rules it was given.
    void requestFactoryDebug();

    /// Puts another manager behind ActivityManager::self(); null brings the framework's own back.
    void setActivityManager(const QSharedPointer<ActivityManager> &manager);

    static FrameworkHost *current();
    QSharedPointer<ActivityManager> activityManager() const;
    QSharedPointer<ModuleManager> moduleManager() const;
    QWidget *layer(UIHerarchy herarchy) const;
    QRect desktopRect() const;

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void tellOfTouch(const QObject *window, const QEvent *event) const;

    QWidget *m_screen;
    QList<ScreenLayer *> m_layers;
    QSharedPointer<SimActivityManager> m_activities;
    QSharedPointer<SimModuleManager> m_modules;
    QSharedPointer<InfoModule> m_info;
    QSharedPointer<ActivityManager> m_otherManager;
};

} // namespace kvappframework
