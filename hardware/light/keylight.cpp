#include "keylight.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/mcu.h"

#include <QMutexLocker>
#include <QString>

namespace hardware
{

namespace
{

const char head[] = "\xFF\x66\x06\x15\x84\xFE";
const int headBytes = sizeof(head) - 1;
const int colorBytes = 3;
const char tail = '\xFF';
const KeyColor ownColor = {10, 60, 100};

bool isColorMessage(const QByteArray &message)
{
    return message.size() == headBytes + colorBytes + 1 && message.startsWith(head)
        && message.endsWith(tail);
}

bool isPossible(const KeyColor &color)
{
    return qMax(qMax(color.red, color.green), color.blue) <= KeyLight::brightest;
}

} // namespace

KeyLight::KeyLight(Journal &journal, Mcu &mcu)
    : m_journal(journal)
    , m_color(ownColor)
{
    connect(&mcu, &Mcu::messageReceived, this, &KeyLight::receive, Qt::DirectConnection);
}

KeyColor KeyLight::color() const
{
    const QMutexLocker locker(&m_mutex);
    return m_color;
}

void KeyLight::receive(const QByteArray &message)
{
    if (!isColorMessage(message)) {
        return;
    }
    const auto part = [&message](int index) { return int(uchar(message.at(headBytes + index))); };
    const KeyColor color = {part(0), part(1), part(2)};
    const QString text = QStringLiteral("%1 %2 %3").arg(color.red).arg(color.green).arg(color.blue);
    if (!isPossible(color)) {
        m_journal.write(QStringLiteral("keylight"), QStringLiteral("refused ") + text);
        return;
    }
    {
        const QMutexLocker locker(&m_mutex);
        m_color = color;
        m_journal.write(QStringLiteral("keylight"), text);
    }
    emit colorChanged();
}

} // namespace hardware
