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

/// The thread of a simulated device: waits for what is due, for what other threads have done on it,
/// and, where the device answers on a descriptor, for input.
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

    /// Starts the thread of a device without a descriptor.
    void start();

    /// Ends the thread; what is due later is dropped. For the owner.
    void stop();

    /// Has the thread do something and waits until it is done. Without a thread, and on the thread
    /// itself, it is done at once. It follows from what the caller does. Any thread.
    void call(const std::function<void()> &work);

    /// Has the thread do something after \a unitMs milliseconds of the unit's time, and does not
    /// wait. It follows from what the caller does, if that is known; else it is the device's own
    /// doing. Any thread.
    void after(double unitMs, const std::function<void()> &work);

    /// Drops everything that after() was given. Any thread; on another one something may just be
    /// done.
    void dropAll();

private:
    using Time = std::chrono::steady_clock::time_point;

    void run();
    void waitForInput();
    int waitMs();
    void doWhatIsDue();
    bool doCalls();
    void wakeUp() const;

    const Clock &m_clock;
    std::function<int()> m_descriptor;
    std::function<void()> m_readable;
    std::function<void()> m_quiet;
    Time m_lastInput;
    int m_wakeUp = -1;

    std::mutex m_mutex; // of all below; not held while something is done
    std::multimap<Time, std::function<void()>> m_due;
    std::condition_variable m_callDone;
    std::vector<const std::function<void()> *> m_calls;
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace hardware
