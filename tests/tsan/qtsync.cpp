// Tells the thread sanitizer what orders threads inside Qt, which no distribution builds with it:
// these functions stand ahead of Qt's, and call them. Whoever emits a signal counts as earlier than
// every call that is delivered later, since only Qt knows which signal a call came from.

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <array>
#include <cstdarg>
#include <dlfcn.h>
#include <linux/futex.h>
#include <map>
#include <memory>
#include <mutex>
#include <sanitizer/tsan_interface.h>
#include <semaphore.h>
#include <sys/syscall.h>

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

/// Is zero until its thread has ended.
class Semaphore
{
public:
    Semaphore() { sem_init(&m_semaphore, 0, 0); }
    ~Semaphore() { sem_destroy(&m_semaphore); }
    void post() { sem_post(&m_semaphore); }
    void wait() { sem_wait(&m_semaphore); }

private:
    Q_DISABLE_COPY(Semaphore)
    sem_t m_semaphore;
};

/// Goes with its thread, after all that Qt does there.
struct OwnEnd
{
    ~OwnEnd()
    {
        if (semaphore != nullptr) {
            semaphore->post();
        }
    }
    std::shared_ptr<Semaphore> semaphore;
};

thread_local OwnEnd ownEnd;
std::mutex threadEndsMutex;

std::map<const QThread *, std::shared_ptr<Semaphore>> &threadEnds()
{
    static std::map<const QThread *, std::shared_ptr<Semaphore>> ends;
    return ends;
}

/// Qt counts a thread as over a little earlier, and keeps to itself what orders the two.
bool awaitEnd(const QThread *thread)
{
    std::shared_ptr<Semaphore> end;
    {
        const std::lock_guard<std::mutex> lock(threadEndsMutex);
        end.swap(threadEnds()[thread]);
    }
    if (end != nullptr) {
        end->wait();
    }
    return true;
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

void QThread::start(Priority priority)
{
    static const auto qtStart =
        qtFunction<void (*)(QThread *, Priority)>("_ZN7QThread5startENS_8PriorityE");
    const auto end = std::make_shared<Semaphore>();
    {
        const std::lock_guard<std::mutex> lock(threadEndsMutex);
        threadEnds()[this] = end;
    }
    connect(
        this, &QThread::started, this, [end] { ownEnd.semaphore = end; }, Qt::DirectConnection);
    qtStart(this, priority);
}

bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto qtWait =
        qtFunction<bool (*)(QThread *, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool isOver = qtWait(this, deadline);
    return isOver && awaitEnd(this);
}

bool QThread::wait(unsigned long milliseconds)
{
    return wait(QDeadlineTimer(qint64(milliseconds)));
}

// What Qt's semaphores wait with: a signal whose connection blocks ends so.
extern "C" long syscall(long number, ...) noexcept
{
    static const auto hostCall = qtFunction<long (*)(long, ...)>("syscall");
    std::array<long, 6> words;
    va_list arguments;
    va_start(arguments, number);
    for (long &word : words) {
        word = va_arg(arguments, long);
    }
    va_end(arguments);
    auto *const address = reinterpret_cast<void *>(words[0]);
    const bool isFutex = number == SYS_futex;
    const long operation = words[1] & FUTEX_CMD_MASK;
    if (isFutex && (operation == FUTEX_WAKE || operation == FUTEX_WAKE_OP)) {
        __tsan_release(address);
    }
    const long result =
        hostCall(number, words[0], words[1], words[2], words[3], words[4], words[5]);
    if (isFutex && (operation == FUTEX_WAIT || operation == FUTEX_WAIT_BITSET)) {
        __tsan_acquire(address);
    }
    return result;
}
