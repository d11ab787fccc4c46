#pragma once

#include <QByteArray>
#include <QObject>

namespace hardware
{

class Journal;

/// The unit's microcontroller: takes messages, sounds the beeper, restarts the unit. Thread-safe.
class Mcu : public QObject
{
    Q_OBJECT

public:
    explicit Mcu(Journal &journal);

    /// Journal: mcu <bytes in upper-case hexadecimal, separated by blanks>.
    void send(const QByteArray &message);

    /// Journal: mcu beep <type>.
    void beep(int type);

    /// Whether an update may begin at any moment. Journal: mcu update ready <0|1>.
    void setUpdateReady(bool ready);

    /// Journal: mcu reboot. Whoever plays the unit's power hears rebootRequested().
    void reboot();

signals:
    void messageReceived(const QByteArray &message);
    void rebootRequested();

private:
    Journal &m_journal;
};

} // namespace hardware
