#pragma once

#include "updatepackage.h"

#include "hardware/unit/deviceloop.h"

#include <QObject>
#include <QQueue>
#include <QString>

#include <atomic>
#include <memory>

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
    ~UserUpdate() override = default;

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
    bool isSilent() const;
    bool refusesData() const;

signals:
    /// A check has ended: 0 the package is good, other numbers are UpdatePackage::Result. Sent from
    /// the service's own thread.
    void verified(int result);

private:
    void beginNext();
    void readOn();

    const UnitFolder &m_folder;
    Journal &m_journal;
    QQueue<QString> m_waiting;
    std::unique_ptr<UpdatePackage> m_package; // that is checked; null for none
    std::atomic<bool> m_silent{false};
    std::atomic<bool> m_dataRefused{false};
    DeviceLoop m_loop; // the last one: its thread uses all the others
};

} // namespace hardware
