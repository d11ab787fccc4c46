#pragma once

#include <QVector>

#include <thread>

/// While it lives, the sleeps of the thread that made it are kept, and take a tenth of their time.
/// The gate must leave time alone: then it asks for these calls ahead of the C library's.
class RecordedSleeps
{
public:
    RecordedSleeps();
    ~RecordedSleeps();

    /// Microseconds each.
    const QVector<qint64> &all() const;

    /// For usleep() and sleep() themselves. False on other threads.
    bool take(qint64 microseconds);

private:
    Q_DISABLE_COPY(RecordedSleeps)

    const std::thread::id m_thread;
    QVector<qint64> m_all;
};
