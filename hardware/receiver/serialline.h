#pragma once

#include <QByteArray>
#include <QString>

namespace hardware
{

class Clock;

/// The device's end of a serial line: a pseudo-terminal whose other end is the unit's port. Bytes
/// take the time that they take at the line's speed, ten bits each. For one thread, but for what
/// says otherwise.
class SerialLine
{
public:
    /// \a clock must outlive the line.
    explicit SerialLine(const Clock &clock);
    ~SerialLine();
    SerialLine(const SerialLine &) = delete;
    SerialLine &operator=(const SerialLine &) = delete;

    /// Makes a new pseudo-terminal, in place of the former one. False with a sentence in \a error.
    bool open(QString *error);
    bool isOpen() const;

    /// The port's name on the host; empty while the line is not open.
    QString port() const;

    /// Becomes readable when the port has sent something; -1 while the line is not open.
    int descriptor() const;

    /// The line is gone: whoever has the port open reads its end.
    void hangUp();

    /// Speed in baud that the port is set to, 0 for one that a receiver cannot have.
    int portSpeed() const;
    /// Sets the port raw, and to a speed of the usual ones, as whoever used it before would.
    void setPortSpeed(int baud);
    /// Whether something was said that has not been read yet.
    bool hasUnread() const;
    /// Throws away what was said and not read.
    void discardUnread();

    /// What the port has sent, as much as is at hand and at most 256 bytes, once a device that
    /// listens at \a baud has received all of it. Where the port's speed is another one, the bytes
    /// are no longer those that were sent. Blocks for as long as the bytes take.
    QByteArray hear(int baud);

    /// Sends to the port at \a baud; where the port's speed is another one, it receives other
    /// bytes. They arrive at once when the last one has been sent, as from a port that wakes its
    /// reader for a full buffer. What does not fit into the port's buffer is lost. Blocks for as
    /// long as the bytes take.
    void say(const QByteArray &bytes, int baud);

    /// Looks at the port's speed; to be called now and then while nothing is heard, since what was
    /// sent just before a change of speed may be heard only after it.
    void watchSpeed();

private:
    void close();
    void passTime(qint64 *busyUntil, int bytes, int baud) const;

    const Clock &m_clock;
    int m_device = -1;
    int m_port = -1;
    QString m_portName;
    int m_watchedSpeed = 0;
    bool m_moreWasWaiting = false;
    qint64 m_hearingUntil = 0; // by the clock, in nanoseconds
    qint64 m_sayingUntil = 0;
};

} // namespace hardware
