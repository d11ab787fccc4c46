#include "deviceloop.h"

#include "cause.h"
#include "clock.h"
#include "gatebypass.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>

namespace hardware
{

namespace
{

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// While bytes come and go, in host time.
const int quietPollMs = 2;
const milliseconds attention(200);

} // namespace

DeviceLoop::DeviceLoop(const Clock &clock)
    : m_clock(clock)
{
}

DeviceLoop::~DeviceLoop()
{
    stop();
}

void DeviceLoop::start(const std::function<int()> &descriptor,
                       const std::function<void()> &readable, const std::function<void()> &quiet)
{
    stop();
    m_descriptor = descriptor;
    m_readable = readable;
    m_quiet = quiet;
    m_stopping = false;
    m_wakeUp = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    m_thread = std::thread([this] { run(); });
}

void DeviceLoop::start()
{
    start([] { return -1; }, [] {}, [] {});
}

void DeviceLoop::stop()
{
    if (!m_thread.joinable()) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    wakeUp();
    m_thread.join();
    m_due.clear();
    close(m_wakeUp);
    m_wakeUp = -1;
}

void DeviceLoop::call(const std::function<void()> &work)
{
    if (!m_thread.joinable() || std::this_thread::get_id() == m_thread.get_id()) {
        work();
        return;
    }
    const std::function<void()> following = [cause = Cause::current(), &work] {
        const CauseScope scope(cause);
        work();
    };
    std::unique_lock<std::mutex> lock(m_mutex);
    m_calls.push_back(&following);
    wakeUp();
    m_callDone.wait(lock, [this, &following] {
        return std::find(m_calls.cbegin(), m_calls.cend(), &following) == m_calls.cend();
    });
}

void DeviceLoop::after(double unitMs, const std::function<void()> &work)
{
    const auto delay = std::chrono::duration<double, std::milli>(unitMs / m_clock.factor());
    const Time due =
        steady_clock::now() + std::chrono::duration_cast<steady_clock::duration>(delay);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_due.emplace(due, [cause = Cause::current(), work] { doFollowing(cause, work); });
    if (std::this_thread::get_id() != m_thread.get_id()) {
        wakeUp();
    }
}

void DeviceLoop::dropAll()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_due.clear();
}

void DeviceLoop::run()
{
    // Devices work on the host's files; a gate has nothing to do with them.
    const GateBypass device;
    while (doCalls()) {
        doWhatIsDue();
        waitForInput();
    }
}

void DeviceLoop::waitForInput()
{
    pollfd descriptors[] = {{m_wakeUp, POLLIN, 0}, {m_descriptor(), POLLIN, 0}};
    poll(descriptors, 2, waitMs());
    std::uint64_t count = 0;
    const ssize_t size = read(m_wakeUp, &count, sizeof count);
    static_cast<void>(size);
    if (descriptors[1].revents != 0) {
        m_lastInput = steady_clock::now();
        m_readable();
    } else {
        m_quiet();
    }
}

/// Host milliseconds; -1 for no end.
int DeviceLoop::waitMs()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Time now = steady_clock::now();
    int wait = now - m_lastInput < attention ? quietPollMs : -1;
    if (!m_due.empty()) {
        const auto left = std::chrono::ceil<milliseconds>(m_due.cbegin()->first - now);
        const int due = int(std::max<std::int64_t>(0, left.count()));
        wait = wait < 0 ? due : std::min(wait, due);
    }
    return wait;
}

void DeviceLoop::doWhatIsDue()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_stopping && !m_due.empty() && m_due.cbegin()->first <= steady_clock::now()) {
        const auto next = m_due.extract(m_due.begin());
        lock.unlock();
        next.mapped()();
        lock.lock();
    }
}

/// False when the thread is to end.
bool DeviceLoop::doCalls()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_calls.empty()) {
        const std::function<void()> *work = m_calls.front();
        lock.unlock();
        (*work)();
        lock.lock();
        m_calls.erase(m_calls.begin());
        m_callDone.notify_all();
    }
    return !m_stopping;
}

void DeviceLoop::wakeUp() const
{
    const std::uint64_t one = 1;
    const ssize_t size = write(m_wakeUp, &one, sizeof one);
    static_cast<void>(size);
}

} // namespace hardware
