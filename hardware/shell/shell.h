#pragma once

#include <QByteArray>
#include <QMutex>
#include <QSet>
#include <QWaitCondition>

#include <sys/types.h>

namespace hardware
{

class Clock;
class Journal;
class UnitFolder;

/// The unit's shell: runs a command with the unit's paths led into its folder and the unit's own
/// commands first in PATH.
class Shell
{
public:
    Shell(const UnitFolder &folder, const Clock &clock, Journal &journal);

    /// Runs the command by /bin/sh and waits for its end; the result is that of system().
    /// Journal: shell <command as given>. A command that would still name a path below the host's
    /// /dev, /sys, /proc or /media (other than /dev/null), or the root folder above them, is not
    /// run: exit status 126, journal: shell refused <command>. What it names is what counts, with
    /// ".." and quotes resolved; a command that makes up a path while it runs is not seen through.
    /// Nor is one run whose commands stand in one another more than 100 deep.
    /// Any thread.
    int run(const QByteArray &command) const;

    /// The power is gone: what runs is killed, and no command is run until powerOn(); its status is
    /// that of a killed one. Nothing runs any more when this returns. Any thread.
    void powerOff();
    void powerOn();

    /// The command with every path of the unit led into the unit's folder, as run() hands it to
    /// /bin/sh, which knows the folder as "$UNIT", and the host's microseconds that a second of the
    /// unit's time lasts as "$UNIT_SECOND".
    static QByteArray mapped(const QByteArray &command);

private:
    int runByShell(QByteArray command) const;

    const UnitFolder &m_folder;
    const Clock &m_clock;
    Journal &m_journal;
    mutable QMutex m_mutex;        // of those below
    mutable QSet<pid_t> m_running; // the first process of each group
    mutable QWaitCondition m_isIdle;
    bool m_isOff = false;
};

} // namespace hardware
