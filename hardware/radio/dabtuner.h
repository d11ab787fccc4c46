#pragma once

#include "hardware/unit/deviceloop.h"

#include <QByteArray>
#include <QMutex>
#include <QObject>
#include <QQueue>

#include <memory>

namespace hardware
{

class Clock;
class Journal;
class UnitFolder;

/// The simulated DAB tuner. It takes new firmware from a stick on a thread of its own, from which
/// it also tells its status. All functions may be called from any thread; none waits for whoever
/// hears of the status.
class DabTuner : public QObject
{
    Q_OBJECT

public:
    /// The codes that the tuner tells; others exist only where a technician makes them up.
    enum Status : unsigned char {
        Idle = 0,
        Updating = 7,
        UpdateFailed = 8,
        UpdateSucceeded = 9,
    };

    enum Fault {
        NoFault,
        WriteFails, ///< the firmware's write fails at some place
        Stalls,     ///< the update stands still at some place until the fault is gone
        IsMute,     ///< the status changes, but nobody is told
    };

    /// The firmware's place below a stick's mount root.
    static const char firmwareFile[];
    /// Unit time that an update lasts.
    static constexpr int updateMs = 10000;

    DabTuner(const UnitFolder &folder, const Clock &clock, Journal &journal);
    /// Waits for the tuner's thread: nobody may be left who keeps it waiting in statusTold().
    ~DabTuner() override = default;

    int status() const;
    /// How much of the firmware is written, in per cent; 100 after a success.
    int progress() const;

    /// Begins to take the firmware from the stick with that mount root, and returns at once. False
    /// while an update runs. Journal: dab update <file>, dab progress <per cent>, and in the end
    /// dab update ok, <bytes> bytes, or dab update failed: <why>.
    bool startUpdate(const QByteArray &mountRoot);

    /// The unit restarts: an update that runs is lost. Journal: dab restarted.
    void restart();

    /// Takes on a status, 0 to 255, and tells it. An update that runs is lost.
    void setStatus(int status);

    /// \a percent is the place at which the firmware's write fails or stands still.
    void setFault(Fault fault, int percent);
    Fault fault(int *percent) const;

signals:
    /// Sent from the tuner's thread, which waits while a receiver works. Journal: dab tells <code>.
    void statusTold(int status);

private:
    /// The firmware that is being written.
    struct Update
    {
        QString file;
        qint64 size = -1; ///< in bytes; -1 until the file has been looked at
        qint64 written = 0;
        bool isHeldUp = false; ///< by a fault
    };

    void tellNext();
    void goOnLater(double unitMs);
    void goOn(const std::shared_ptr<Update> &update);
    void carryOutStep();
    void take(int status);
    void finish(int status, const QString &result);
    int percent() const;
    void journal(const QString &text) const;

    const UnitFolder &m_folder;
    Journal &m_journal;

    mutable QMutex m_mutex; ///< never held while somebody is told
    int m_status = Idle;
    int m_progress = 0;
    Fault m_fault = NoFault;
    int m_faultPercent = 0;
    QQueue<int> m_untold;
    std::shared_ptr<Update> m_update; ///< null while none runs
    DeviceLoop m_loop;                ///< the last one: its thread uses all the others
};

} // namespace hardware
