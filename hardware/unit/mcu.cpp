#include "mcu.h"

#include "journal.h"

namespace hardware
{

Mcu::Mcu(Journal &journal)
    : m_journal(journal)
{
}

void Mcu::send(const QByteArray &message)
{
    m_journal.write(QStringLiteral("mcu"), QString::fromLatin1(message.toHex(' ').toUpper()));
    emit messageReceived(message);
}

void Mcu::beep(int type)
{
    m_journal.write(QStringLiteral("mcu"), QStringLiteral("beep %1").arg(type));
}

void Mcu::setUpdateReady(bool ready)
{
    m_journal.write(QStringLiteral("mcu"), QStringLiteral("update ready %1").arg(int(ready)));
}

void Mcu::reboot()
{
    m_journal.write(QStringLiteral("mcu"), QStringLiteral("reboot"));
    emit rebootRequested();
}

} // namespace hardware
