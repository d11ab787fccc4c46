#pragma once

#include "kvglobal/kvglobal.h"

#include <functional>
#include <memory>
#include <string>

/// Runs tasks beside the graphical thread. Any thread.
class KV_API ThreadPool
{
public:
    static ThreadPool *getInstance();
    ~ThreadPool();

    /// Starts \a task at once on a worker. The name is for joinTaskStop(); several tasks may have
    /// the same one.
    void addTask(std::function<void()> task, std::string name);

    /// Waits until every task of that name has ended.
    void joinTaskStop(std::string name);

private:
    ThreadPool();
    ThreadPool(const ThreadPool &);
    ThreadPool &operator=(const ThreadPool &);

    class Workers;
    std::unique_ptr<Workers> m_workers;
};
