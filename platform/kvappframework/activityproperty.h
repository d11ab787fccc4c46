#pragma once

#include "kvglobal/kvglobal.h"

#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

class QObject;
class QWidget;

namespace kvappframework
{

/// What kind of application an activity is.
enum ACTVITY_TYPE {
    ACTVITY_TYPE_APP = 0,
};

/// Who wins when two triggers compete for the screen; the larger number.
enum TRIGGER_PRIORITY {
    TRIGGER_PRIORITY_DEBUG = 4,
};

/// How an activity's user interface comes and goes.
enum AnmType {
    ANM_TYPE_NONE = 0,
};

/// Whether the framework brings an activity back after power was off.
enum ACTVITY_RESUME_TYPE {
    ACTVITY_RESUME_TYPE_NONE = 0,
};

/// What getActivitySpecialInfo() can be asked for.
enum ACTIVITY_INFO_TYPE {
    ACTIVITY_INFO_TYPE_NONE = 0,
};

/// Called by the framework for events of an activity that has no user interface of its own.
class KV_API ActivityEventCbk
{
public:
    virtual ~ActivityEventCbk();
};

/// What the framework knows of an activity. The order of the virtual functions is the framework's
/// binary interface.
class KV_API ActivityProperty
{
public:
    ActivityProperty(const QString &name, ACTVITY_TYPE type,
                     QSharedPointer<ActivityEventCbk> callback, QStringList &dependModules,
                     TRIGGER_PRIORITY priority, AnmType anm, ACTVITY_RESUME_TYPE resume);
    virtual ~ActivityProperty();

    /// The name shown to the user.
    virtual QString getDispString() const;
    /// Modules that must be there before the activity is created.
    virtual QSharedPointer<QStringList> getDependModules() const;

    virtual void setUiObj(QWidget *uiObj);
    /// The widget last given to setUiObj(), whether or not it still exists.
    virtual QWidget *getUiObj();
    virtual void setEventFilter(QObject *eventFilter);
    virtual QObject *getEventFilter();
    virtual void setPriority(TRIGGER_PRIORITY priority);
    virtual TRIGGER_PRIORITY getPriority();
    virtual AnmType getAnmType();
    virtual bool needPowerResume();
    virtual QSharedPointer<ActivityEventCbk> getCbk();
    virtual QVariant getActivitySpecialInfo(ACTIVITY_INFO_TYPE type);

    /// The name by which the activity is started and closed.
    QString getName() const;
    ACTVITY_TYPE getType() const;

private:
    QString m_name;
    ACTVITY_TYPE m_type;
    QSharedPointer<ActivityEventCbk> m_callback;
    QStringList m_dependModules;
    TRIGGER_PRIORITY m_priority;
    AnmType m_anm;
    ACTVITY_RESUME_TYPE m_resume;
    QWidget *m_uiObj;
    QObject *m_eventFilter;
};

} // namespace kvappframework
