#pragma once

#include <QString>
#include <QStringList>

namespace hardware
{

class PhysicalMemory;
class UnitFolder;

/// The two USB ports' physical layer, as the registers in the physical memory and the switches
/// below "/sys" set it. It holds nothing of its own. Any thread.
class UsbPhy
{
public:
    static const int ports = 2;

    UsbPhy(const PhysicalMemory &memory, const UnitFolder &folder);
    Q_DISABLE_COPY(UsbPhy)

    /// "host", "device", or the role register's digits.
    QString role() const;

    /// "high speed", "full speed", or what the port's switch holds instead.
    QString speed(int port) const;

    /// The code in the port's test-mode register with its meaning: "9 (test J, high speed)".
    QString testMode(int port) const;

    /// The port's swing from "+31" to "-31", with "+0" and "-0", or its byte: "byte 8F".
    QString swing(int port) const;

    /// The port's disconnect level, 0 to 31: the low five bits of its register.
    int disconnectLevel(int port) const;

    /// Whether the test for the USB logo was started.
    bool isLogoTestOn() const;

    /// One line for each thing that there is to know, for people.
    QStringList description() const;

private:
    QString switchState(const QString &unitPath) const;

    const PhysicalMemory &m_memory;
    const UnitFolder &m_folder;
};

} // namespace hardware
