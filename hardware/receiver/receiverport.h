#pragma once

#include "receiverfaults.h"
#include "serialline.h"

#include "hardware/unit/deviceloop.h"

#include <QByteArray>
#include <QString>

#include <atomic>

namespace hardware
{

class Clock;
class Journal;

/// What the GPS receiver has in all its stages: its end of the line, its speed and its thread, and
/// the faults that keep it from answering. On its thread only, but for loop() and where it says
/// otherwise.
class ReceiverPort
{
public:
    ReceiverPort(const Clock &clock, Journal &journal);
    Q_DISABLE_COPY(ReceiverPort)

    SerialLine &line() { return m_line; }
    DeviceLoop &loop() { return m_loop; }
    ReceiverFaults &faults() { return m_faults; }

    /// In baud.
    int speed() const { return m_speed; }
    void setSpeed(int speed) { m_speed = speed; }

    /// While the unit's own service reads the line, it gets all that the receiver says.
    void setServiceReading(bool reading) { m_serviceReads = reading; }

    /// Whether the receiver answers in that stage, at that block; a fault that says otherwise is
    /// carried out.
    bool answers(const QString &stage, int block = 0);
    void say(const QByteArray &bytes);
    /// What has come, as SerialLine::hear() gives it.
    QByteArray hear();

    /// Whether the journal gets the bytes on the line: wire from receiver <bytes in hexadecimal>,
    /// and wire to receiver <bytes in hexadecimal>, up to 32 in a line. Any thread.
    void showWire(bool show) { m_showsWire = show; }
    bool showsWire() const { return m_showsWire; }

    /// Journal: receiver <text>.
    void note(const QString &text);

private:
    void journalWire(const QString &direction, const QByteArray &bytes);

    Journal &m_journal;
    std::atomic<bool> m_showsWire{false};
    SerialLine m_line;
    ReceiverFaults m_faults;
    int m_speed = 0;
    bool m_serviceReads = true;
    DeviceLoop m_loop; // the last one: its thread uses all the others
};

} // namespace hardware
