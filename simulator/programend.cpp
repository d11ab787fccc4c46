#include "programend.h"

#include "exitstatus.h"

#include "hardware/unit/gatebypass.h"
#include "hardware/unit/journal.h"
#include "simulator/framework/graphicalthread.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace simulator
{

namespace
{

enum Word : char { Nothing, End, NoMore };

/// What a signal handler may use: the writing end of the pipe.
std::atomic<int> pipeOfSignals{-1};

void say(int pipe, Word word)
{
    while (write(pipe, &word, sizeof word) < 0 && errno == EINTR) { }
}

/// What is said within that time; Nothing when nothing is.
Word hear(int pipe, const QDeadlineTimer &deadline)
{
    pollfd ready = {pipe, POLLIN, 0};
    while (poll(&ready, 1, int(deadline.remainingTime())) < 0 && errno == EINTR) { }
    Word word = Nothing;
    return ready.revents != 0 && read(pipe, &word, sizeof word) == sizeof word ? word : Nothing;
}

void handleSignal(int)
{
    const int kept = errno;
    say(pipeOfSignals, End);
    errno = kept;
}

void takeSignals()
{
    struct sigaction action = {};
    action.sa_handler = handleSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaction(signal, &action, nullptr);
    }
}

} // namespace

ProgramEnd::ProgramEnd(hardware::Journal &journal)
    : m_journal(journal)
{
    if (pipe2(m_pipe, O_CLOEXEC) != 0) {
        qFatal("No pipe: %s", std::strerror(errno));
    }
    pipeOfSignals = m_pipe[1];
    takeSignals();
    start();
}

ProgramEnd::~ProgramEnd()
{
    pipeOfSignals = -1;
    say(m_pipe[1], NoMore);
    wait();
    close(m_pipe[0]);
    close(m_pipe[1]);
}

void ProgramEnd::leaveNothingOf(const QStringList &paths)
{
    const QMutexLocker locker(&m_mutex);
    m_passing += paths;
}

void ProgramEnd::request()
{
    say(m_pipe[1], End);
}

void ProgramEnd::run()
{
    if (hear(m_pipe[0], QDeadlineTimer(QDeadlineTimer::Forever)) == NoMore) {
        return;
    }
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::exit(ExitFine); }, Qt::QueuedConnection);
    const QDeadlineTimer deadline(GraphicalThread::blockedTimeoutMs);
    Word word = End;
    while (word == End) {
        word = hear(m_pipe[0], deadline);
    }
    if (word == Nothing) {
        endBlocked();
    }
}

void ProgramEnd::endBlocked()
{
    m_journal.write(QStringLiteral("unit"), QStringLiteral("ended with its screen blocked"));
    const hardware::GateBypass toLeftovers;
    const QMutexLocker locker(&m_mutex);
    for (const QString &path : qAsConst(m_passing)) {
        std::error_code ignored;
        std::filesystem::remove_all(QFile::encodeName(path).toStdString(), ignored);
    }
    std::fprintf(stderr, "The screen is blocked by a page's work; the program ended without it.\n");
    // Neither destructors nor buffers: what blocks the screen may hold what they wait for.
    std::_Exit(ExitBlocked);
}

} // namespace simulator
