#include "usbphy.h"

#include "hardware/memory/physicalmemory.h"
#include "hardware/unit/unitfolder.h"

#include <QFile>

namespace hardware
{

namespace
{

// Where the PHY listens. What is the ports' own lies 128 bytes apart.
constexpr quint32 roleAddress = 0x9C00018C;
constexpr quint32 swingAddress = 0x9C000190; // a byte for each port, from the lowest
constexpr quint32 testModeAddress = 0x9C004A90;
constexpr quint32 disconnectAddress = 0x9C004A9C;
constexpr quint32 portDistance = 128;

constexpr quint32 hostRole = 0x00070007;
constexpr quint32 deviceRole = 0x00070004;

constexpr quint32 plusZero = 0x40;
constexpr quint32 minusZero = 0x60;
constexpr quint32 largestSwing = 31;
constexpr quint32 disconnectBits = 0x1F;

const QLatin1String logoTestSwitch("/sys/module/usbcore/parameters/usb_logo_test_start");
// Counted from 1.
const QLatin1String speedSwitch("/sys/devices/platform/ehci-platform.%1/usb_speed_switch");

struct TestModeName
{
    quint32 code;
    const char *name;
};

const TestModeName testModeNames[] = {
    {0, "none"},
    {1, "eye diagram, high speed"},
    {4, "eye diagram, full speed"},
    {7, "SE0"},
    {9, "test J, high speed"},
    {10, "test K, high speed"},
    {11, "test J, full speed"},
    {12, "test K, full speed"},
};

} // namespace

UsbPhy::UsbPhy(const PhysicalMemory &memory, const UnitFolder &folder)
    : m_memory(memory)
    , m_folder(folder)
{
}

QString UsbPhy::role() const
{
    const quint32 word = m_memory.read(roleAddress);
    switch (word) {
    case hostRole:
        return QStringLiteral("host");
    case deviceRole:
        return QStringLiteral("device");
    default:
        return PhysicalMemory::hex(word);
    }
}

QString UsbPhy::speed(int port) const
{
    const QString state = switchState(QString(speedSwitch).arg(port + 1));
    if (state == QLatin1String("1")) {
        return QStringLiteral("high speed");
    }
    return state == QLatin1String("0") ? QStringLiteral("full speed")
                                       : QStringLiteral("speed \"%1\"").arg(state);
}

QString UsbPhy::testMode(int port) const
{
    const quint32 code = m_memory.read(testModeAddress + portDistance * quint32(port));
    for (const TestModeName &mode : testModeNames) {
        if (mode.code == code) {
            return QStringLiteral("%1 (%2)").arg(code).arg(QLatin1String(mode.name));
        }
    }
    return PhysicalMemory::hex(code);
}

QString UsbPhy::swing(int port) const
{
    const quint32 value = m_memory.read(swingAddress) >> (8 * port) & 0xFF;
    if (value >= plusZero && value <= plusZero + largestSwing) {
        return QStringLiteral("+%1").arg(value - plusZero);
    }
    if (value >= minusZero && value <= minusZero + largestSwing) {
        return QStringLiteral("-%1").arg(value - minusZero);
    }
    return QStringLiteral("byte ") + PhysicalMemory::hex(value).right(2);
}

int UsbPhy::disconnectLevel(int port) const
{
    return int(m_memory.read(disconnectAddress + portDistance * quint32(port)) & disconnectBits);
}

bool UsbPhy::isLogoTestOn() const
{
    return switchState(logoTestSwitch) == QLatin1String("1");
}

QStringList UsbPhy::description() const
{
    QStringList lines{QStringLiteral("role ") + role()};
    for (int port = 0; port < ports; ++port) {
        lines.append(QStringLiteral("port %1: %2, test mode %3, swing %4, disconnect level %5")
                         .arg(port)
                         .arg(speed(port), testMode(port), swing(port))
                         .arg(disconnectLevel(port)));
    }
    lines.append(isLogoTestOn() ? QStringLiteral("logo test on") : QStringLiteral("logo test off"));
    return lines;
}

QString UsbPhy::switchState(const QString &unitPath) const
{
    QFile file(m_folder.path(unitPath));
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()).trimmed()
                                          : QString();
}

} // namespace hardware
