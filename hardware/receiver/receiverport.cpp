#include "receiverport.h"

#include "hardware/unit/journal.h"

namespace hardware
{

namespace
{
const int bytesInALine = 32;
}

ReceiverPort::ReceiverPort(const Clock &clock, Journal &journal)
    : m_journal(journal)
    , m_line(clock)
    , m_loop(clock)
{
}

bool ReceiverPort::answers(const QString &stage, int block)
{
    if (m_faults.hangsUp(stage, block)) {
        note(QStringLiteral("hangs up at ") + stage);
        m_loop.dropAll();
        m_line.hangUp();
        return false;
    }
    const bool isSilent = m_faults.isSilent(stage, block);
    if (isSilent) {
        note(QStringLiteral("silent at ") + stage);
    }
    return !isSilent;
}

void ReceiverPort::say(const QByteArray &bytes)
{
    if (!m_serviceReads) {
        journalWire(QStringLiteral("from"), bytes);
        m_line.say(bytes, m_speed);
    }
}

QByteArray ReceiverPort::hear()
{
    const QByteArray bytes = m_line.hear(m_speed);
    journalWire(QStringLiteral("to"), bytes);
    return bytes;
}

void ReceiverPort::journalWire(const QString &direction, const QByteArray &bytes)
{
    for (int place = 0; m_showsWire && place < bytes.size(); place += bytesInALine) {
        const QByteArray hex = bytes.mid(place, bytesInALine).toHex(' ').toUpper();
        m_journal.write(QStringLiteral("wire"),
                        QStringLiteral("%1 receiver %2").arg(direction, QLatin1String(hex)));
    }
}

void ReceiverPort::note(const QString &text)
{
    m_journal.write(QStringLiteral("receiver"), text);
}

} // namespace hardware
