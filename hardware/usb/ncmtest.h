#pragma once

#include "ncmfigures.h"

#include <QMutex>
#include <QScopedPointer>
#include <QStringList>

namespace hardware
{

class Clock;
class Journal;
class NcmRun;
class UnitFolder;

/// The throughput tests over the network link between the unit and a connected device, of which at
/// most one runs. As a client the unit sends, as a server it receives; its server is a process of
/// the unit, "run/as_server", and ends when that file goes. Thread-safe.
class NcmTest
{
public:
    enum Kind { TcpServer, UdpServer, UdpClient50, UdpClient100, TcpClient };

    NcmTest(const Clock &clock, const UnitFolder &folder, Journal &journal);
    ~NcmTest();
    Q_DISABLE_COPY(NcmTest)

    /// Ends the test that runs, if one does, and starts another. False when starts are refused.
    /// Journal: ncm start <kind>, then ncm refused <kind>: <reason> where it is.
    bool start(Kind kind);

    /// Ends the test that runs. False when none does.
    /// Journal: ncm stop. However a test ends, and with whichever call that is found out, the
    /// journal has: ncm ended <kind>, <figures>.
    bool stop();

    /// Fault: from now on no test can be started, as without a connected device.
    void refuseStarts(bool refuse);
    bool refusesStarts() const;

    bool isRunning() const;

    /// Those of the test that runs, or ran last.
    NcmFigures figures() const;

    /// Which test runs or ran last, and its figures, for people.
    QStringList description() const;

    /// "udp client 50"
    static QString name(Kind kind);

private:
    void endRun();
    QString summary() const;
    QString processFile() const;
    bool makeProcessFile() const;

    const Clock &m_clock;
    const UnitFolder &m_folder;
    Journal &m_journal;
    mutable QMutex m_mutex;
    Kind m_kind = TcpServer;
    QScopedPointer<NcmRun> m_run;
    bool m_isEnded = true; // and its end is in the journal
    bool m_startsRefused = false;
};

} // namespace hardware
