#include "latercause.h"

#include <QHash>
#include <QMutex>
#include <QObject>
#include <QThread>
#include <QVariant>

Q_DECLARE_METATYPE(hardware::Cause)

namespace hardware
{

namespace
{

constexpr char deletionProperty[] = "causeOfDeletion";

struct PostedEvents
{
    QMutex mutex;
    QHash<const QEvent *, Cause> causes;
};

/// Used until the process ends.
PostedEvents &postedEvents()
{
    static auto *const all = new PostedEvents;
    return *all;
}

} // namespace

void rememberDeletion(QObject &object)
{
    // The object is told of it, which only its own thread may do.
    if (object.thread() == QThread::currentThread()) {
        object.setProperty(deletionProperty, QVariant::fromValue(Cause::current()));
    }
}

Cause causeOfDeletion(const QObject &object)
{
    return object.property(deletionProperty).value<Cause>();
}

void rememberPosted(const QEvent &event)
{
    const QMutexLocker locker(&postedEvents().mutex);
    postedEvents().causes.insert(&event, Cause::current());
}

Cause causeOfPosted(const QEvent &event)
{
    const QMutexLocker locker(&postedEvents().mutex);
    return postedEvents().causes.take(&event);
}

} // namespace hardware
