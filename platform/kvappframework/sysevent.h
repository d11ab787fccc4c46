#pragma once

#include "kvglobal/kvglobal.h"

#include <QEvent>
#include <QSharedPointer>
#include <QVariant>

namespace kvappframework
{

class EventPrivateData;

/// Event type of every SysEvent, registered with Qt when the framework is loaded.
extern KV_API const QEvent::Type UserType;

/// Event type by which a widget asks for the key tone, registered likewise.
extern KV_API const QEvent::Type EventType_Beep;

/// A message between activities, modules and the framework, posted to the receiver of a module.
class KV_API SysEvent : public QEvent
{
public:
    enum EventId {
        /// Start an activity on a request of the system. Private data: the activity's name, and
        /// the module that it needs; the value says whether the rule replaces the earlier ones.
        EventImplicitRule = 14,
    };
    enum Argument {
        NoArgument = -1,
    };

    SysEvent(QEvent::Type type, int eventId, const QVariant &value, int argument,
             const QSharedPointer<EventPrivateData> &privateData);
    ~SysEvent() override;

    int eventId() const;
    QVariant value() const;
    int argument() const;
    QSharedPointer<EventPrivateData> privateData() const;

private:
    int m_eventId;
    QVariant m_value;
    int m_argument;
    QSharedPointer<EventPrivateData> m_privateData;
};

} // namespace kvappframework
