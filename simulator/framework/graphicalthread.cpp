#include "graphicalthread.h"

#include "hardware/unit/gatebypass.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFile>
#include <QThread>
#include <QTimer>

#include <unistd.h>

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

GraphicalThread::GraphicalThread()
    : m_id(gettid())
{
}

bool GraphicalThread::run(const std::function<void()> &function)
{
    return runWhile([] { return true; }, function);
}

bool GraphicalThread::runWithin(int hostMs, const std::function<void()> &function)
{
    return runWithin(hostMs, hostMs, function);
}

bool GraphicalThread::runWithin(int hostMs, int asleepMs, const std::function<void()> &function)
{
    const QDeadlineTimer deadline(hostMs);
    int sleptMs = 0;
    // What a busy host makes a look come too late by is no sleep.
    return runWhile(
        [&] {
            sleptMs += isAsleep() ? pollMs : 0;
            return sleptMs < asleepMs && !deadline.hasExpired();
        },
        function);
}

bool GraphicalThread::runWhile(const std::function<bool()> &isPatient,
                               const std::function<void()> &function)
{
    if (isCurrent()) {
        function();
        return true;
    }
    const auto call = std::make_shared<Call>();
    call->function = function;
    QMutexLocker locker(&m_mutex);
    QMetaObject::invokeMethod(
        this, [this, call] { carryOut(call); }, Qt::QueuedConnection);
    while (call->state == Call::State::Waiting && !m_closed && isPatient()) {
        m_changed.wait(&m_mutex, pollMs);
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

/// Whether it waits for something else than a processor or a disk; proc(5) gives its state behind
/// its name in parentheses.
bool GraphicalThread::isAsleep() const
{
    const hardware::GateBypass host;
    QFile file(QStringLiteral("/proc/self/task/%1/stat").arg(m_id));
    if (!file.open(QIODevice::ReadOnly)) {
        return true;
    }
    const QByteArray status = file.readAll();
    return status.mid(status.lastIndexOf(')')).startsWith(") S");
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
