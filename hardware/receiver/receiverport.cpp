#include "receiverport.h"

#include "hardware/unit/journal.h"

namespace hardware
{

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
        m_line.say(bytes, m_speed);
    }
}

void ReceiverPort::note(const QString &text)
{
    m_journal.write(QStringLiteral("receiver"), text);
}

} // namespace hardware
