#pragma once

#include <QVector>

#include <functional>
#include <thread>

/// While it lives, the sleeps of the thread that made it are kept, and take a part of their time.
/// The gate must leave time alone: then it asks for these calls ahead of the C library's.
class RecordedSleeps
{
public:
    /// \a watch is called ahead of each sleep, which takes one of \a parts of its time.
    explicit RecordedSleeps(int parts = 10, const std::function<void()> &watch = {});
    ~RecordedSleeps();

    /// Microseconds each.
    const QVector<qint64> &all() const;

    /// For usleep() and sleep() themselves. False on other threads.
    bool take(qint64 microseconds);
    int parts() const { return m_parts; }

private:
    Q_DISABLE_COPY(RecordedSleeps)

    const std::thread::id m_thread;
    const int m_parts;
    const std::function<void()> m_watch;
    QVector<qint64> m_all;
};
