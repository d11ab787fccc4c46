#pragma once

#include <QMetaType>
#include <QVector>

#include <sys/select.h>

/// While it lives, select() does not wait: its results are a script's, and how it was called is
/// kept. The test's program finds this select() ahead of the C library's.
class ScriptedSelect
{
public:
    /// One call's result, and errno behind it.
    struct Result
    {
        int value;
        int error;
    };

    struct Call
    {
        int count; ///< of descriptors to look at
        bool readsThat;
        bool hasOtherSets;
        timeval timeout;
    };

    /// \a fd is the descriptor that Call::readsThat is about; further calls give the last result.
    ScriptedSelect(int fd, const QVector<Result> &results);
    ~ScriptedSelect();

    const QVector<Call> &calls() const;

    /// For select() itself.
    int select(const Call &call);
    bool isThat(const fd_set *readable) const;

private:
    Q_DISABLE_COPY(ScriptedSelect)

    const int m_fd;
    const QVector<Result> m_results;
    QVector<Call> m_calls;
};

Q_DECLARE_METATYPE(ScriptedSelect::Result)
