#pragma once

#include <QMutex>
#include <QStringList>
#include <QVector>

#include <atomic>

namespace hardware
{

class Journal;

/// Calls of the plug-in's that are to fail, each once. All functions may be called from any thread.
class CallFaults
{
public:
    explicit CallFaults(Journal &journal);

    /// Of the calls from now on whose text begins with \a call, has the \a number-th fail, counted
    /// from 1.
    void add(const QString &call, int number);

    /// What is still to come, as "<number> <call>".
    QStringList pending() const;

    void clear();

    /// Whether the call with this text is to fail. Journal: fault <call>.
    bool fails(const QString &call);

    /// Whether none is to come, so that nobody needs to make the text of a call.
    bool isEmpty() const { return m_isEmpty; }

private:
    struct Fault
    {
        QString call;
        int number;
    };

    Journal &m_journal;
    mutable QMutex m_mutex;
    QVector<Fault> m_faults;
    std::atomic<bool> m_isEmpty{true};
};

} // namespace hardware
