#include "usbports.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/tablerow.h"

#include <QMutexLocker>

namespace hardware
{

namespace
{

const char *const bcModeNames[] = {"CDP", "DCP", "SDP"};
const unsigned int bcModes = 3;
const unsigned int ports = 2;
const QLatin1String certificationField("certification");

QString portField(unsigned int port)
{
    return QStringLiteral("port%1").arg(port);
}

bool isCertification(int mode)
{
    return mode == 'O' || mode == 'T' || mode == 'M';
}

/// Whatever is missing was never set.
bool check(const TableRow &row)
{
    int number = 0;
    for (unsigned int port = 0; port < ports; ++port) {
        if (row.contains(portField(port))
            && !row.readNumber(portField(port), 0, int(bcModes) - 1, &number)) {
            return false;
        }
    }
    return !row.contains(certificationField)
        || isCertification(row.text(certificationField).toInt())
        || row.refuse(certificationField, QStringLiteral("allowed is 77, 79 or 84"));
}

QString bcModeName(int mode)
{
    return QLatin1String(bcModeNames[mode]);
}

} // namespace

UsbPorts::UsbPorts(Journal &journal)
    : m_journal(journal)
    , m_state(QStringLiteral("General"), {portField(0), portField(1), certificationField}, journal)
{
}

bool UsbPorts::open(const QString &file, QString *error)
{
    const QMutexLocker locker(&m_mutex);
    return m_state.open(file, check, error);
}

void UsbPorts::setBcMode(unsigned int port, unsigned int mode)
{
    if (port >= ports || mode >= bcModes) {
        m_journal.write(QStringLiteral("usb"),
                        QStringLiteral("refused port %1 mode %2").arg(port).arg(mode));
        return;
    }
    keep(portField(port), int(mode));
    m_journal.write(QStringLiteral("usb"),
                    QStringLiteral("port %1 %2").arg(port).arg(bcModeName(int(mode))));
}

int UsbPorts::bcMode(unsigned int port) const
{
    return port < ports ? kept(portField(port), 0) : 0;
}

void UsbPorts::setCertification(unsigned int mode)
{
    if (!isCertification(int(mode))) {
        m_journal.write(QStringLiteral("usb"),
                        QStringLiteral("refused certification %1").arg(mode));
        return;
    }
    keep(certificationField, int(mode));
    m_journal.write(QStringLiteral("usb"),
                    QStringLiteral("certification %1").arg(QChar(ushort(mode))));
}

int UsbPorts::certification() const
{
    return kept(certificationField, 'O');
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

void UsbPorts::keep(const QString &field, int value)
{
    const QMutexLocker locker(&m_mutex);
    m_state.setValue(field, QString::number(value));
}

int UsbPorts::kept(const QString &field, int initial) const
{
    const QMutexLocker locker(&m_mutex);
    const QString value = m_state.value(field);
    return value.isEmpty() ? initial : value.toInt();
}

} // namespace hardware
