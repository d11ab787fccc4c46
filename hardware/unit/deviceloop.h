#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

namespace hardware
{

class Clock;

/// The thread of a simulated device that answers on a descriptor: waits for input, for what is due
/// and for what other threads have done on it.
class DeviceLoop
{
public:
    /// \a clock must outlive the loop.
    explicit DeviceLoop(const Clock &clock);
    ~DeviceLoop();
    DeviceLoop(const DeviceLoop &) = delete;
    DeviceLoop &operator=(const DeviceLoop &) = delete;

    /// Starts the thread. \a descriptor says what to wait for, -1 for nothing; \a readable is
    /// called when it has input, \a quiet now and then while it has none but had some a moment ago.
    /// All are called on the thread.
    void start(const std::function<int()> &descriptor, const std::function<void()> &readable,
               const std::function<void()> &quiet);

    /// Ends the thread; what is due later is dropped. For the owner.
    void stop();

    /// Has the thread do something and waits until it is done. Without a thread, and on the thread
    /// itself, it is done at once. Any thread.
    void call(const std::function<void()> &work);

    /// Does something after \a unitMs milliseconds of the unit's time. On the thread only.
    void after(int unitMs, const std::function<void()> &work);

    /// Drops everything that after() was given. On the thread only.
    void dropAll();

private:
    using Time = std::chrono::steady_clock::time_point;

    void run();
    void waitForInput();
    int waitMs() const;
    void doWhatIsDue();
    bool doCalls();
    void wakeUp() const;

    const Clock &m_clock;
    std::function<int()> m_descriptor;
    std::function<void()> m_readable;
    std::function<void()> m_quiet;
    std::multimap<Time, std::function<void()>> m_due;
    Time m_lastInput;
    int m_wakeUp = -1;

    std::mutex m_mutex;
    std::condition_variable m_callDone;
    std::vector<const std::function<void()> *> m_calls;
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace hardware
