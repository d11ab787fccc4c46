#pragma once

#include "hardware/unit/statefile.h"

#include <QMutex>
#include <QString>
#include <QStringList>

namespace hardware
{

class Journal;

/// The unit's two USB ports: charging modes, certification and test pattern, kept in "usb.ini".
/// Thread-safe.
class UsbPorts
{
public:
    explicit UsbPorts(Journal &journal);
    Q_DISABLE_COPY(UsbPorts)

    /// False with a sentence in \a error that names the file, the line, the value and what is
    /// allowed.
    bool open(const QString &file, QString *error);

    /// \a port is 0 or 1, \a mode 0 CDP, 1 DCP or 2 SDP; anything else is journalled as refused.
    /// Journal: usb port <port> <CDP|DCP|SDP>.
    void setBcMode(unsigned int port, unsigned int mode);
    /// As set last; 0 at first, and for a port that does not exist.
    int bcMode(unsigned int port) const;

    /// \a mode is 'O', 'T' or 'M'; anything else is journalled as refused.
    /// Journal: usb certification <letter>.
    void setCertification(unsigned int mode);
    /// As set last; 'O' at first.
    int certification() const;

    /// Journal: usb test mode <number>.
    void setTestMode(int mode);

    /// One line for each thing that there is to know, for people.
    QStringList description() const;

private:
    void keep(const QString &field, int value);
    int kept(const QString &field, int initial) const;

    Journal &m_journal;
    mutable QMutex m_mutex;
    StateFile m_state;
};

} // namespace hardware
