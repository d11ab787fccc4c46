#pragma once

#include "kvappframework/activitymanager.h"

#include <QList>
#include <QObject>

namespace kvappframework
{

class Activity;

/// The simulated framework's activity manager. What it is asked for it carries out from the event
/// loop, in the order of the requests, after the touch that asked for it has been handled.
class KV_API SimActivityManager : public QObject, public ActivityManager
{
    Q_OBJECT

public:
    SimActivityManager();
    ~SimActivityManager() override;

    /// Makes an activity known under its property's name; it must live until it is removed.
    void add(Activity *activity);

    /// Forgets an activity, closing it at once if it runs.
    void remove(Activity *activity);

    /// Journal: framework start <name> <argument>, then framework started <name>.
    int startActivity(const QString &name, int argument) override;
    /// Journal: framework close <name>, then framework closed <name>.
    int closeActivity(const QString &name) override;

    /// Closes, from the event loop, the activity that was started last; false when none runs.
    bool closeTopActivity();

    /// Closes all running activities at once, the latest first: the unit goes down.
    void closeAll();

    /// Names of the activities that run, the one started last at the end.
    QStringList running() const;

    /// The argument with which a running activity was last started; 0 for one that does not run.
    int argument(const QString &name) const;

signals:
    void activityStarted(const QString &name, int argument);
    void activityClosed(const QString &name);

private:
    struct Running
    {
        QString name;
        Activity *activity;
        int argument;
    };

    Activity *find(const QString &name) const;
    int runningIndex(const QString &name) const;
    bool hasModules(Activity *activity) const;
    void carryOutStart(const QString &name, int argument);
    void carryOutClose(const QString &name);

    QList<Activity *> m_activities;
    QList<Running> m_running;
};

} // namespace kvappframework
