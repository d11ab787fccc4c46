#pragma once

#include "support/openunit.h"

#include <termios.h>

/// The receiver of a unit whose time passes ten times faster, as whoever has its port open knows
/// it; the unit's own service does not read.
class ReceiverLine
{
public:
    ReceiverLine();
    ~ReceiverLine();

    hardware::Unit &unit() { return *m_unit; }
    hardware::GpsReceiver &receiver() { return m_unit->gpsReceiver(); }
    int port() const { return m_port; }
    /// Host path of a path of the unit.
    QString path(const QString &unitPath) const { return m_unit.path(unitPath); }

    /// Opens the port anew, as one must once the line was hung up.
    void open();
    void setSpeed(speed_t speed);
    void say(const QByteArray &bytes);
    /// What comes within half a second; empty when nothing does.
    QByteArray answer();
    /// Waits until \a text has come; whether it has.
    bool hears(const QByteArray &text);

private:
    OpenUnit m_unit{10.0};
    int m_port = -1;
};

/// Both ways.
void setPortSpeed(int port, speed_t speed);

/// A frame of XMODEM-1K with a CRC: STX, the number and its complement, \a data of 1024 bytes, the
/// CRC with its high byte first.
QByteArray xmodemFrame(int number, const QByteArray &data);

/// A package of one section: a header of 32 bytes, and the payload.
QByteArray receiverPackage(const QByteArray &payload);
