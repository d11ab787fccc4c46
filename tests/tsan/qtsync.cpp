// Tells the thread sanitizer what orders threads inside Qt, which no distribution builds with it:
// these functions stand ahead of Qt's, and call them. Whoever emits a signal counts as earlier than
// every call that is delivered later, since only Qt knows which signal a call came from.

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QMutex>
#include <QWaitCondition>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace
{

char emissions; // only its address counts

/// Qt's own function of this symbol; a method takes its object first.
template <typename Function> Function qtFunction(const char *symbol)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, symbol));
}

bool beforeDelivery(void **parameters)
{
    __tsan_acquire(parameters[0]); // the receiver
    if (static_cast<QEvent *>(parameters[1])->type() == QEvent::MetaCall) {
        __tsan_acquire(&emissions);
    }
    return false; // Qt delivers it.
}

void watchDeliveries()
{
    QInternal::registerCallback(QInternal::EventNotifyCallback, beforeDelivery);
}

} // namespace

Q_CONSTRUCTOR_FUNCTION(watchDeliveries)

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto qtLock = qtFunction<void (*)(QMutex *)>("_ZN6QMutex4lockEv");
    qtLock(this);
    __tsan_acquire(this);
}

bool QMutex::tryLock(int timeout) QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto qtTryLock = qtFunction<bool (*)(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    const bool isLocked = qtTryLock(this, timeout);
    if (isLocked) {
        __tsan_acquire(this);
    }
    return isLocked;
}

void QMutex::unlock() noexcept
{
    static const auto qtUnlock = qtFunction<void (*)(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    qtUnlock(this);
}

bool QWaitCondition::wait(QMutex *lockedMutex, QDeadlineTimer deadline)
{
    static const auto qtWait = qtFunction<bool (*)(QWaitCondition *, QMutex *, QDeadlineTimer)>(
        "_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    __tsan_release(lockedMutex);
    const bool isWoken = qtWait(this, lockedMutex, deadline);
    __tsan_acquire(lockedMutex);
    return isWoken;
}

bool QWaitCondition::wait(QMutex *lockedMutex, unsigned long milliseconds)
{
    static const auto qtWait = qtFunction<bool (*)(QWaitCondition *, QMutex *, unsigned long)>(
        "_ZN14QWaitCondition4waitEP6QMutexm");
    __tsan_release(lockedMutex);
    const bool isWoken = qtWait(this, lockedMutex, milliseconds);
    __tsan_acquire(lockedMutex);
    return isWoken;
}

void QCoreApplication::postEvent(QObject *receiver, QEvent *event, int priority)
{
    static const auto qtPostEvent = qtFunction<void (*)(QObject *, QEvent *, int)>(
        "_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    __tsan_release(receiver);
    qtPostEvent(receiver, event, priority);
}

void QMetaObject::activate(QObject *sender, const QMetaObject *metaObject, int signal,
                           void **arguments)
{
    static const auto qtActivate =
        qtFunction<void (*)(QObject *, const QMetaObject *, int, void **)>(
            "_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    __tsan_release(&emissions);
    qtActivate(sender, metaObject, signal, arguments);
}

bool QMetaObject::invokeMethodImpl(QObject *receiver, QtPrivate::QSlotObjectBase *slot,
                                   Qt::ConnectionType type, void *result)
{
    static const auto qtInvoke =
        qtFunction<bool (*)(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *)>(
            "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14Connec"
            "tionTypeEPv");
    __tsan_release(receiver);
    return qtInvoke(receiver, slot, type, result);
}
