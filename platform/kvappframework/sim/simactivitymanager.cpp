#include "simactivitymanager.h"

#include "frameworkhost.h"
#include "simmodulemanager.h"

#include "kvappframework/activity.h"
#include "kvappframework/activityproperty.h"
#include "kvappframework/module.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

#include <QStringList>
#include <QWidget>

#include <algorithm>

namespace kvappframework
{

namespace
{

void journal(const QString &text)
{
    unitlink::unit().journal().write(QStringLiteral("framework"), text);
}

} // namespace

SimActivityManager::SimActivityManager() = default;

SimActivityManager::~SimActivityManager()
{
    closeAll();
}

void SimActivityManager::add(Activity *activity)
{
    m_activities.append(activity);
}

void SimActivityManager::remove(Activity *activity)
{
    carryOutClose(activity->getProperty()->getName());
    m_activities.removeAll(activity);
}

int SimActivityManager::startActivity(const QString &name, int argument)
{
    journal(QStringLiteral("start %1 %2").arg(name).arg(argument));
    if (find(name) == nullptr) {
        journal(QStringLiteral("unknown activity %1").arg(name));
        return -1;
    }
    QMetaObject::invokeMethod(
        this, [this, name, argument] { carryOutStart(name, argument); }, Qt::QueuedConnection);
    return 0;
}

int SimActivityManager::closeActivity(const QString &name)
{
    journal(QStringLiteral("close %1").arg(name));
    if (find(name) == nullptr) {
        journal(QStringLiteral("unknown activity %1").arg(name));
        return -1;
    }
    QMetaObject::invokeMethod(
        this, [this, name] { carryOutClose(name); }, Qt::QueuedConnection);
    return 0;
}

bool SimActivityManager::closeTopActivity()
{
    return !m_running.isEmpty() && closeActivity(m_running.last().name) == 0;
}

void SimActivityManager::closeAll()
{
    while (!m_running.isEmpty()) {
        const QString name = m_running.last().name;
        carryOutClose(name);
    }
}

QStringList SimActivityManager::running() const
{
    QStringList names;
    for (const Running &entry : m_running) {
        names.append(entry.name);
    }
    return names;
}

int SimActivityManager::argument(const QString &name) const
{
    const int index = runningIndex(name);
    return index < 0 ? 0 : m_running.at(index).argument;
}

Activity *SimActivityManager::find(const QString &name) const
{
    const auto found =
        std::find_if(m_activities.cbegin(), m_activities.cend(), [&name](Activity *activity) {
            return activity->getProperty()->getName() == name;
        });
    return found == m_activities.cend() ? nullptr : *found;
}

int SimActivityManager::runningIndex(const QString &name) const
{
    for (int index = 0; index < m_running.size(); ++index) {
        if (m_running.at(index).name == name) {
            return index;
        }
    }
    return -1;
}

bool SimActivityManager::hasModules(Activity *activity) const
{
    const QSharedPointer<QStringList> names = activity->getProperty()->getDependModules();
    for (const QString &name : qAsConst(*names)) {
        if (!name.isEmpty() && FrameworkHost::current()->modules().find(name) == nullptr) {
            journal(QStringLiteral("missing module %1").arg(name));
            return false;
        }
    }
    return true;
}

void SimActivityManager::carryOutStart(const QString &name, int argument)
{
    Activity *activity = find(name);
    if (activity == nullptr || !hasModules(activity)) {
        return;
    }
    const int index = runningIndex(name);
    if (index >= 0) {
        m_running[index].argument = argument;
        m_running.move(index, m_running.size() - 1);
        activity->getProperty()->getUiObj()->raise();
    } else {
        m_running.append({name, activity, argument});
        activity->onCreat();
    }
    activity->onStart();
    journal(QStringLiteral("started %1").arg(name));
    emit activityStarted(name, argument);
}

void SimActivityManager::carryOutClose(const QString &name)
{
    const int index = runningIndex(name);
    if (index < 0) {
        return;
    }
    Activity *activity = m_running.takeAt(index).activity;
    activity->onStop();
    activity->onDestory();
    journal(QStringLiteral("closed %1").arg(name));
    emit activityClosed(name);
}

} // namespace kvappframework
