#include "xmodemreceiver.h"

#include <array>

namespace hardware
{

namespace
{

const char stx = 0x02;
const char eot = 0x04;

const int dataOffset = 3;
const int crcOffset = dataOffset + XmodemReceiver::blockSize;
const int frameSize = crcOffset + 2;

/// What each value of a byte makes of a CRC of 0.
constexpr std::array<quint16, 256> crcTable()
{
    std::array<quint16, 256> table = {};
    for (unsigned int byte = 0; byte < table.size(); ++byte) {
        unsigned int crc = byte << 8;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 0x8000) != 0 ? crc << 1 ^ 0x1021 : crc << 1;
        }
        table[byte] = quint16(crc);
    }
    return table;
}

} // namespace

void XmodemReceiver::refuse(const QMap<int, int> &timesByBlock)
{
    m_refusals = timesByBlock;
}

XmodemReceiver::Event XmodemReceiver::take(char byte)
{
    if (m_frame.isEmpty() && byte == eot) {
        return Event::Ended;
    }
    if (m_frame.isEmpty() && byte != stx) {
        return Event::Nothing;
    }
    m_hasBegun = true;
    m_frame.append(byte);
    return m_frame.size() < frameSize ? Event::Nothing : takeFrame();
}

bool XmodemReceiver::hasBegun() const
{
    return m_hasBegun;
}

int XmodemReceiver::block() const
{
    return m_block;
}

QString XmodemReceiver::problem() const
{
    return m_problem;
}

QByteArray XmodemReceiver::data() const
{
    return m_data;
}

XmodemReceiver::Event XmodemReceiver::takeFrame()
{
    m_problem = frameProblem();
    const bool isRepeated = m_block > 0 && uchar(m_frame.at(1)) == (m_block & 0xFF);
    if (m_problem.isEmpty() && !isRepeated && m_refusals.value(m_block + 1) > 0) {
        --m_refusals[m_block + 1];
        m_problem = QStringLiteral("is refused on purpose");
    }
    Event event = Event::Refused;
    if (m_problem.isEmpty() && isRepeated) {
        event = Event::Repeated;
    } else if (m_problem.isEmpty()) {
        m_data += m_frame.mid(dataOffset, blockSize);
        ++m_block;
        event = Event::Accepted;
    }
    m_frame.clear();
    return event;
}

/// Empty when the frame is right.
QString XmodemReceiver::frameProblem() const
{
    const int number = uchar(m_frame.at(1));
    const int complement = uchar(m_frame.at(2));
    if (number + complement != 0xFF) {
        return QStringLiteral("has number %1 with complement %2").arg(number).arg(complement);
    }
    const int crc = uchar(m_frame.at(crcOffset)) << 8 | uchar(m_frame.at(crcOffset + 1));
    if (crc != xmodemCrc(m_frame.constData() + dataOffset, blockSize)) {
        return QStringLiteral("has a wrong CRC");
    }
    const bool isRepeated = m_block > 0 && number == (m_block & 0xFF);
    if (!isRepeated && number != ((m_block + 1) & 0xFF)) {
        return QStringLiteral("has number %1 behind block %2").arg(number).arg(m_block);
    }
    return QString();
}

quint16 xmodemCrc(const char *data, int size)
{
    static constexpr std::array<quint16, 256> table = crcTable();
    quint16 crc = 0;
    for (int index = 0; index < size; ++index) {
        crc = quint16(crc << 8 ^ table[crc >> 8 ^ uchar(data[index])]);
    }
    return crc;
}

} // namespace hardware
