#include "kvappframework/sysevent.h"

#include "kvappframework/eventprivatedata.h"

namespace kvappframework
{

const QEvent::Type UserType = static_cast<QEvent::Type>(QEvent::registerEventType());
const QEvent::Type EventType_Beep = static_cast<QEvent::Type>(QEvent::registerEventType());

SysEvent::SysEvent(QEvent::Type type, int eventId, const QVariant &value, int argument,
                   const QSharedPointer<EventPrivateData> &privateData)
    : QEvent(type)
    , m_eventId(eventId)
    , m_value(value)
    , m_argument(argument)
    , m_privateData(privateData)
{
}

SysEvent::~SysEvent() = default;

int SysEvent::eventId() const
{
    return m_eventId;
}

QVariant SysEvent::value() const
{
    return m_value;
}

int SysEvent::argument() const
{
    return m_argument;
}

QSharedPointer<EventPrivateData> SysEvent::privateData() const
{
    return m_privateData;
}

} // namespace kvappframework
