// Qt's functions by which the plug-in and the stand-ins have something done later or elsewhere:
// queued signals and calls, events of their own, and deletions. They do what Qt's own do, and see
// to it that what is done then follows from what was going on when it was asked for. Connections of
// the old kind, by SIGNAL() and SLOT(), are left alone: what comes through them follows from
// something unknown.

#include "hardware/unit/latercause.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <dlfcn.h>

#include <deque>
#include <map>
#include <mutex>
#include <tuple>
#include <utility>

using hardware::Cause;
using hardware::CauseScope;

namespace
{

/// Qt's own function of this symbol; a method takes its object first.
template <typename Function> Function qtFunction(const char *symbol)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, symbol));
}

/// A sender with the class that has the signal, and the signal's number in it.
using Signal = std::tuple<const QObject *, const QMetaObject *, int>;

class FollowingSlot;

/// The slots that a signal leads to. A function's own, since it is used until the process ends.
struct Connections
{
    using Slots = std::multimap<Signal, FollowingSlot *>;

    std::mutex mutex; // of what the slots remember, too
    Slots waiting;
};

Connections &connections()
{
    static auto *const all = new Connections;
    return *all;
}

/// Stands in front of a slot: each call of it follows from what its signal was emitted for. Qt
/// delivers the calls of one connection in the order of their signals.
class FollowingSlot : public QtPrivate::QSlotObjectBase
{
public:
    explicit FollowingSlot(QtPrivate::QSlotObjectBase *slot)
        : QSlotObjectBase(&FollowingSlot::handle)
        , m_slot(slot)
    {
    }

    void listenTo(const Signal &signal)
    {
        const std::lock_guard<std::mutex> lock(connections().mutex);
        m_place = connections().waiting.emplace(signal, this);
        m_listens = true;
    }

    void willBeCalledFor(const Cause &cause) { m_causes.push_back(cause); }

private:
    ~FollowingSlot()
    {
        {
            // Also where it does not listen: Qt's count of references, by which the last thread
            // ends it, is nothing that the thread sanitizer knows of.
            const std::lock_guard<std::mutex> lock(connections().mutex);
            if (m_listens) {
                connections().waiting.erase(m_place);
            }
        }
        m_slot->destroyIfLastRef();
    }

    static void handle(int which, QSlotObjectBase *base, QObject *receiver, void **arguments,
                       bool *isSame)
    {
        auto *self = static_cast<FollowingSlot *>(base);
        switch (which) {
        case Destroy:
            delete self;
            break;
        case Call:
            self->pass(receiver, arguments);
            break;
        case Compare:
            *isSame = self->m_slot->compare(arguments);
            break;
        default:
            break;
        }
    }

    void pass(QObject *receiver, void **arguments)
    {
        const CauseScope scope(nextCause());
        m_slot->call(receiver, arguments);
    }

    Cause nextCause()
    {
        const std::lock_guard<std::mutex> lock(connections().mutex);
        if (m_causes.empty()) {
            // A signal that Qt itself has emitted: at once, or nobody knows for what.
            return Cause::current();
        }
        const Cause next = m_causes.front();
        m_causes.pop_front();
        return next;
    }

    QtPrivate::QSlotObjectBase *const m_slot;
    std::deque<Cause> m_causes;
    Connections::Slots::iterator m_place;
    bool m_listens = false;
};

bool canBeLater(Qt::ConnectionType type)
{
    return (type & ~Qt::UniqueConnection) != Qt::DirectConnection;
}

Signal signalOf(const QObject *sender, void **signal, const QMetaObject *metaObject)
{
    int index = -1;
    void *question[] = {&index, signal};
    for (; metaObject != nullptr; metaObject = metaObject->superClass()) {
        metaObject->static_metacall(QMetaObject::IndexOfMethod, 0, question);
        if (index >= 0) {
            break;
        }
    }
    return {sender, metaObject, index};
}

} // namespace

QMetaObject::Connection QObject::connectImpl(const QObject *sender, void **signal,
                                             const QObject *receiver, void **slot,
                                             QtPrivate::QSlotObjectBase *object,
                                             Qt::ConnectionType type, const int *types,
                                             const QMetaObject *senderMetaObject)
{
    using Function = QMetaObject::Connection (*)(const QObject *, void **, const QObject *, void **,
                                                 QtPrivate::QSlotObjectBase *, Qt::ConnectionType,
                                                 const int *, const QMetaObject *);
    static const auto qtConnect =
        qtFunction<Function>("_ZN7QObject11connectImplEPKS_PPvS1_S3_PN9QtPrivate15QSlotObjectBase"
                             "EN2Qt14ConnectionTypeEPKiPK11QMetaObject");
    if (sender == nullptr || signal == nullptr || !canBeLater(type)) {
        return qtConnect(sender, signal, receiver, slot, object, type, types, senderMetaObject);
    }
    auto *following = new FollowingSlot(object);
    following->listenTo(signalOf(sender, signal, senderMetaObject));
    return qtConnect(sender, signal, receiver, slot, following, type, types, senderMetaObject);
}

void QMetaObject::activate(QObject *sender, const QMetaObject *metaObject, int signal,
                           void **arguments)
{
    static const auto qtActivate =
        qtFunction<void (*)(QObject *, const QMetaObject *, int, void **)>(
            "_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    if (!sender->signalsBlocked()) {
        const std::lock_guard<std::mutex> lock(connections().mutex);
        const auto range = connections().waiting.equal_range(Signal(sender, metaObject, signal));
        for (auto slot = range.first; slot != range.second; ++slot) {
            slot->second->willBeCalledFor(Cause::current());
        }
    }
    qtActivate(sender, metaObject, signal, arguments);
}

bool QMetaObject::invokeMethodImpl(QObject *receiver, QtPrivate::QSlotObjectBase *slot,
                                   Qt::ConnectionType type, void *result)
{
    static const auto qtInvoke =
        qtFunction<bool (*)(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *)>(
            "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14Connec"
            "tionTypeEPv");
    auto *following = new FollowingSlot(slot);
    following->willBeCalledFor(Cause::current());
    return qtInvoke(receiver, following, type, result);
}

void QObject::deleteLater()
{
    static const auto qtDeleteLater = qtFunction<void (*)(QObject *)>("_ZN7QObject11deleteLaterEv");
    hardware::rememberDeletion(*this);
    qtDeleteLater(this);
}

void QCoreApplication::postEvent(QObject *receiver, QEvent *event, int priority)
{
    static const auto qtPostEvent = qtFunction<void (*)(QObject *, QEvent *, int)>(
        "_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    if (event != nullptr && event->type() >= QEvent::User) {
        hardware::rememberPosted(*event);
    }
    qtPostEvent(receiver, event, priority);
}
