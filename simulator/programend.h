#pragma once

#include <QMutex>
#include <QStringList>
#include <QThread>

namespace hardware
{
class Journal;
}

namespace simulator
{

/// Ends the program when it is asked to, and on SIGINT, SIGTERM and SIGHUP, which it takes from its
/// construction on: it has the graphical thread's event loop end. If the program is still there
/// GraphicalThread::blockedTimeoutMs later, because something blocks that thread, it ends without
/// it, by ExitBlocked and a line on standard error, and leaves nothing of what it had been told of.
/// Signals that come after this object's end do nothing. One at a time.
class ProgramEnd : public QThread
{
    Q_OBJECT

public:
    /// The application object must exist.
    explicit ProgramEnd(hardware::Journal &journal);
    ~ProgramEnd() override;

    /// Files and folders of the host that may not outlive the program.
    void leaveNothingOf(const QStringList &paths);

    /// Returns at once. Any thread.
    void request();

protected:
    void run() override;

private:
    [[noreturn]] void endBlocked();

    hardware::Journal &m_journal;
    QMutex m_mutex;
    QStringList m_passing;
    int m_pipe[2];
};

} // namespace simulator
