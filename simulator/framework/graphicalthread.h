#pragma once

#include <QMutex>
#include <QObject>
#include <QWaitCondition>

#include <functional>
#include <memory>

#include <sys/types.h>

namespace simulator
{

/// Lets other threads have something done on the graphical thread, the one that this object was
/// made on, and wait in a way that the end of the program interrupts. All functions may be called
/// from any thread, also from the graphical one.
class GraphicalThread : public QObject
{
    Q_OBJECT

public:
    /// Host milliseconds after which something that the graphical thread does not get round to is
    /// waited for no more: a page's work blocks it.
    static constexpr int blockedTimeoutMs = 5000;

    GraphicalThread();

    /// Runs \a function on the graphical thread, behind what is queued there already, and returns
    /// when it has run. False, without running it, once the program ends.
    bool run(const std::function<void()> &function);

    /// As run(), but gives up when the graphical thread does not get round to \a function within
    /// \a hostMs milliseconds, because something blocks it.
    bool runWithin(int hostMs, const std::function<void()> &function);

    /// The same, but gives up as soon as the graphical thread has slept for \a asleepMs of them:
    /// then it waits in a page's work, while one that calculates or paints will get round to it.
    bool runWithin(int hostMs, int asleepMs, const std::function<void()> &function);

    /// Lets \a hostMs milliseconds pass; on the graphical thread its event loop runs meanwhile.
    /// False, at once, when the program ends.
    bool pause(int hostMs);

    /// Waits up to \a hostMs milliseconds for \a condition, which is asked again and again on the
    /// calling thread; its last answer.
    bool waitUntil(int hostMs, const std::function<bool()> &condition);

    /// The program ends: interrupts everyone who waits. Call it on the graphical thread after its
    /// event loop has ended.
    void close();
    bool isClosed();

private:
    struct Call;

    bool isCurrent() const;
    bool isAsleep() const;
    bool runWhile(const std::function<bool()> &isPatient, const std::function<void()> &function);
    void carryOut(const std::shared_ptr<Call> &call);

    const pid_t m_id;
    QMutex m_mutex;
    QWaitCondition m_changed;
    bool m_closed = false;
};

} // namespace simulator
