#include "usbports.h"

#include "journal.h"

#include <QMutexLocker>
#include <QSettings>

namespace hardware
{

namespace
{

const char *const bcModeNames[] = {"CDP", "DCP", "SDP"};
const unsigned int bcModes = 3;
const unsigned int ports = 2;
const auto certificationKey = QStringLiteral("certification");

QString portKey(unsigned int port)
{
    return QStringLiteral("port%1").arg(port);
}

QString bcModeName(int mode)
{
    return QLatin1String(bcModeNames[mode]);
}

} // namespace

UsbPorts::UsbPorts(Journal &journal)
    : m_journal(journal)
{
}

bool UsbPorts::open(const QString &file, QString *error)
{
    const QSettings state(file, QSettings::IniFormat);
    if (state.status() != QSettings::NoError || !state.isWritable()) {
        *error = QStringLiteral("The state of the USB ports, \"%1\", cannot be read and written.")
                     .arg(file);
        return false;
    }
    m_file = file;
    return true;
}

void UsbPorts::setBcMode(unsigned int port, unsigned int mode)
{
    if (port >= ports || mode >= bcModes) {
        m_journal.write(QStringLiteral("usb"),
                        QStringLiteral("refused port %1 mode %2").arg(port).arg(mode));
        return;
    }
    keep(portKey(port), int(mode));
    m_journal.write(QStringLiteral("usb"),
                    QStringLiteral("port %1 %2").arg(port).arg(bcModeName(int(mode))));
}

int UsbPorts::bcMode(unsigned int port) const
{
    return qBound(0, kept(portKey(port), 0), int(bcModes) - 1);
}

void UsbPorts::setCertification(unsigned int mode)
{
    if (mode != 'O' && mode != 'T' && mode != 'M') {
        m_journal.write(QStringLiteral("usb"),
                        QStringLiteral("refused certification %1").arg(mode));
        return;
    }
    keep(certificationKey, int(mode));
    m_journal.write(QStringLiteral("usb"),
                    QStringLiteral("certification %1").arg(QChar(ushort(mode))));
}

int UsbPorts::certification() const
{
    return kept(certificationKey, 'O');
}

void UsbPorts::setTestMode(int mode)
{
    m_journal.write(QStringLiteral("usb"), QStringLiteral("test mode %1").arg(mode));
}

QStringList UsbPorts::description() const
{
    QStringList lines;
    for (unsigned int port = 0; port < ports; ++port) {
        lines.append(QStringLiteral("port %1 %2").arg(port).arg(bcModeName(bcMode(port))));
    }
    lines.append(QStringLiteral("certification %1").arg(QChar(ushort(certification()))));
    return lines;
}

void UsbPorts::keep(const QString &key, int value)
{
    const QMutexLocker locker(&m_mutex);
    QSettings(m_file, QSettings::IniFormat).setValue(key, value);
}

int UsbPorts::kept(const QString &key, int initial) const
{
    const QMutexLocker locker(&m_mutex);
    return QSettings(m_file, QSettings::IniFormat).value(key, initial).toInt();
}

} // namespace hardware
