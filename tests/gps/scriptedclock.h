#pragma once

#include <QVector>

#include <sys/time.h>

/// While it lives, gettimeofday() answers with these times, one after the other, and then with the
/// last one. The gate must leave time alone: then it asks for this call ahead of the C library's.
class ScriptedClock
{
public:
    explicit ScriptedClock(const QVector<timeval> &times);
    ~ScriptedClock();

    /// How often it has been asked.
    int calls() const;

    /// For gettimeofday() itself.
    timeval next();

private:
    Q_DISABLE_COPY(ScriptedClock)

    const QVector<timeval> m_times;
    int m_calls;
};
