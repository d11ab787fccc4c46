#include "service/threadpool.h"

#include "hardware/unit/cause.h"
#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

#include <algorithm>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

namespace
{

void journal(const char *what, const std::string &name)
{
    unitlink::unit().journal().write(
        QStringLiteral("threads"),
        QStringLiteral("%1 %2").arg(QLatin1String(what), QString::fromStdString(name)));
}

} // namespace

/// Each task has a thread of its own, so that what a task does to its thread, such as taking
/// real-time priority, goes with it.
class ThreadPool::Workers
{
public:
    ~Workers();

    void add(const std::function<void()> &task, const std::string &name);
    void join(const std::string &name);

private:
    struct Worker
    {
        std::string name;
        std::thread thread;
        bool hasEnded = false;
    };

    using List = std::list<Worker>;

    void run(const std::function<void()> &task, Worker &worker);
    void joinAll(const std::function<bool(const Worker &)> &isMeant);

    std::mutex m_mutex;
    List m_workers;
};

ThreadPool::Workers::~Workers()
{
    joinAll([](const Worker &) { return true; });
}

void ThreadPool::Workers::add(const std::function<void()> &task, const std::string &name)
{
    joinAll([](const Worker &worker) { return worker.hasEnded; });
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_workers.emplace_back();
    Worker &worker = m_workers.back();
    worker.name = name;
    worker.thread = std::thread([this, task, &worker, cause = hardware::Cause::current()] {
        const hardware::CauseScope scope(cause);
        run(task, worker);
    });
}

void ThreadPool::Workers::join(const std::string &name)
{
    joinAll([&name](const Worker &worker) { return worker.name == name; });
}

void ThreadPool::Workers::run(const std::function<void()> &task, Worker &worker)
{
    task();
    journal("end", worker.name);
    const std::lock_guard<std::mutex> lock(m_mutex);
    worker.hasEnded = true;
}

/// Takes the workers out of the list before it waits for them, so that nobody waits for one twice.
void ThreadPool::Workers::joinAll(const std::function<bool(const Worker &)> &isMeant)
{
    List meant;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (auto worker = m_workers.begin(); worker != m_workers.end();) {
            const auto next = std::next(worker);
            const bool isOwn = worker->thread.get_id() == std::this_thread::get_id();
            if (!isOwn && isMeant(*worker)) {
                meant.splice(meant.end(), m_workers, worker);
            }
            worker = next;
        }
    }
    for (Worker &worker : meant) {
        worker.thread.join();
    }
}

ThreadPool::ThreadPool()
    : m_workers(new Workers)
{
}

ThreadPool::~ThreadPool() = default;

ThreadPool *ThreadPool::getInstance()
{
    return unitlink::service<ThreadPool>([] { return new ThreadPool; });
}

void ThreadPool::addTask(std::function<void()> task, std::string name)
{
    if (!unitlink::fails("ThreadPool::addTask")) {
        journal("start", name);
        m_workers->add(task, name);
    }
}

void ThreadPool::joinTaskStop(std::string name)
{
    journal("join", name);
    m_workers->join(name);
}
