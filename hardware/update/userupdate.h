#pragma once

#include <QMutex>
#include <QObject>
#include <QQueue>
#include <QScopedPointer>
#include <QString>
#include <QWaitCondition>

class QThread;

namespace hardware
{

class Clock;
class Journal;
class UnitFolder;

/// The unit's update service: reads update packages, checks them one after the other on a thread of
/// its own, and makes the record by which the boot loader finds the package after the restart.
/// Thread-safe.
class UserUpdate : public QObject
{
    Q_OBJECT

public:
    UserUpdate(const UnitFolder &folder, const Clock &clock, Journal &journal);
    ~UserUpdate() override;

    /// Versions in the package at a path of the unit; empty when it is no package.
    QString customerVersion(const QString &unitPath) const;
    QString sdkVersion(const QString &unitPath) const;

    /// Has a package checked; verified() tells how it ended. A check takes a second and a half of
    /// the unit's time, and 50 milliseconds for each MiB. Journal: update verify <path>, and in the
    /// end update verified <result> <what that means>.
    void startVerification(const QString &unitPath);

    /// Forgets all checks without an answer; none comes any more once this has returned. Not to be
    /// called from a slot of verified().
    void cancelVerifications();

    /// The boot loader's record for an update: "UPD1", the device's number as one byte, the
    /// language's length as one byte, the language in UTF-8, "/ORRERY_PACK.BIN". \a device is what
    /// the platform calls it: 0 and 1 the SD cards, 2 and 3 the USB ports, 5 whichever has a
    /// package. Empty for another device. Journal: update data device <device> <language>.
    QByteArray data(int device, const QString &language) const;

    /// Faults: from now on checks end without an answer; there is no data for any update.
    void setSilent(bool silent);
    void refuseData(bool refuse);

signals:
    /// A check has ended: 0 the package is good, other numbers are UpdatePackage::Result. Sent from
    /// the service's own thread.
    void verified(int result);

private:
    void work();
    void verify(const QString &unitPath);
    /// Waits for unit milliseconds; false when the check was cancelled meanwhile.
    bool pause(int unitMs);

    const UnitFolder &m_folder;
    const Clock &m_clock;
    Journal &m_journal;
    mutable QMutex m_mutex;
    QWaitCondition m_changed;
    QQueue<QString> m_waiting;
    bool m_working = false;
    bool m_cancelled = false;
    bool m_ending = false;
    bool m_silent = false;
    bool m_dataRefused = false;
    QScopedPointer<QThread> m_thread;
};

} // namespace hardware
