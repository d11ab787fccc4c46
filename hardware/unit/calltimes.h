#pragma once

#include "cause.h"

#include <QVector>

namespace hardware
{

/// Notes the calls that its thread makes of the C library and the shell, as a gate tells of them,
/// as long as it lives. One a thread.
class CallTimes
{
public:
    struct Call
    {
        QString name;
        double unitSeconds; ///< What it took of the unit's time …
        double hostSeconds; ///< … and of the host's, which differ for a wait.
        Cause cause;
    };

    CallTimes();
    ~CallTimes();
    Q_DISABLE_COPY(CallTimes)

    /// The calls since the last time.
    QVector<Call> take();

    /// Whether the calls of this thread are noted.
    static bool areWanted();
    /// This thread has made a call.
    static void note(const QString &name, double unitSeconds, double hostSeconds);

private:
    QVector<Call> m_calls;
};

} // namespace hardware
