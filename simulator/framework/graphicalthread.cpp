#include "graphicalthread.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace simulator
{

namespace
{
const int pollMs = 5;
}

struct GraphicalThread::Call
{
    enum class State { Waiting, Running, Done, Abandoned };

    std::function<void()> function;
    State state = State::Waiting;
};

bool GraphicalThread::run(const std::function<void()> &function)
{
    return runWithin(-1, function);
}

bool GraphicalThread::runWithin(int hostMs, const std::function<void()> &function)
{
    if (isCurrent()) {
        function();
        return true;
    }
    const auto call = std::make_shared<Call>();
    call->function = function;
    const QDeadlineTimer deadline(hostMs);
    QMutexLocker locker(&m_mutex);
    QMetaObject::invokeMethod(
        this, [this, call] { carryOut(call); }, Qt::QueuedConnection);
    while (call->state == Call::State::Waiting && !m_closed && !deadline.hasExpired()) {
        m_changed.wait(&m_mutex, deadline);
    }
    // Once it runs it uses what its caller owns, so it has to be waited for.
    while (call->state == Call::State::Running) {
        m_changed.wait(&m_mutex);
    }
    if (call->state == Call::State::Done) {
        return true;
    }
    call->state = Call::State::Abandoned;
    return false;
}

bool GraphicalThread::pause(int hostMs)
{
    if (isCurrent()) {
        QEventLoop loop;
        QTimer::singleShot(hostMs, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
        return true;
    }
    const QDeadlineTimer deadline(hostMs, Qt::PreciseTimer);
    QMutexLocker locker(&m_mutex);
    while (!m_closed && !deadline.hasExpired()) {
        m_changed.wait(&m_mutex, deadline);
    }
    return !m_closed;
}

bool GraphicalThread::waitUntil(int hostMs, const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(hostMs);
    while (!condition()) {
        if (deadline.hasExpired() || !pause(pollMs)) {
            return false;
        }
    }
    return true;
}

void GraphicalThread::close()
{
    QMutexLocker locker(&m_mutex);
    m_closed = true;
    m_changed.wakeAll();
}

bool GraphicalThread::isClosed()
{
    const QMutexLocker locker(&m_mutex);
    return m_closed;
}

bool GraphicalThread::isCurrent() const
{
    return QThread::currentThread() == thread();
}

void GraphicalThread::carryOut(const std::shared_ptr<Call> &call)
{
    {
        QMutexLocker locker(&m_mutex);
        if (call->state == Call::State::Abandoned) {
            return;
        }
        call->state = Call::State::Running;
    }
    call->function();
    QMutexLocker locker(&m_mutex);
    call->state = Call::State::Done;
    m_changed.wakeAll();
}

} // namespace simulator
