#pragma once

#include <QMutex>
#include <QStringList>
#include <QVector>

#include <atomic>

namespace hardware
{

class Journal;

/// Calls of the plug-in's that are to fail. All functions may be called from any thread.
class CallFaults
{
public:
    enum Span { Once, FromThenOn };

    explicit CallFaults(Journal &journal);

    /// Of the calls from now on whose text begins with \a call, a whole word where it is one, has
    /// the \a number-th fail, counted from 1, or that one and all later ones. \a failure is one of
    /// FallibleCall's, empty for the call's usual one.
    void add(const QString &call, int number, const QString &failure = QString(), Span span = Once);

    /// What is still to come, as "<number> <call>[ <failure>][ on]".
    QStringList pending() const;

    void clear();

    /// Whether the call with this text is to fail, and then with what, as add() was told.
    /// Journal: fault <call>[ <failure>].
    bool fails(const QString &call, QString *failure = nullptr);

    /// Whether none is to come, so that nobody needs to make the text of a call.
    bool isEmpty() const { return m_isEmpty; }

private:
    struct Fault
    {
        QString call;
        int number;
        QString failure;
        Span span;

        bool isMeant(const QString &text) const;
    };

    Journal &m_journal;
    mutable QMutex m_mutex;
    QVector<Fault> m_faults;
    std::atomic<bool> m_isEmpty{true};
};

} // namespace hardware
