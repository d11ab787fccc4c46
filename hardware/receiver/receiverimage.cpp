#include "receiverimage.h"

#include "xmodemreceiver.h"

#include <QtEndian>

namespace hardware
{

namespace
{

const int headerSize = 32;
const int lengthOffset = 12;
const int headerCrcOffset = 28;
const int maxTrailingBytes = 32;
const char padding = 0x1A;

const char versionMark[] = "GNSS-VERSION=";

} // namespace

ReceiverImage::ReceiverImage(const QByteArray &blocks)
    : m_blocks(blocks)
{
}

QByteArray ReceiverImage::content() const
{
    return m_blocks.left(contentEnd());
}

bool ReceiverImage::isFilledUpRight() const
{
    const int end = packageEnd();
    return end == 0 || contentEnd() <= end + maxTrailingBytes;
}

QString ReceiverImage::version() const
{
    int begin = m_blocks.indexOf(versionMark);
    if (begin < 0) {
        const QByteArray image = content();
        return QStringLiteral("unmarked %1")
            .arg(xmodemCrc(image.constData(), image.size()), 4, 16, QLatin1Char('0'));
    }
    begin += int(qstrlen(versionMark));
    int end = begin;
    while (end < m_blocks.size() && m_blocks.at(end) >= ' ' && m_blocks.at(end) <= '~') {
        ++end;
    }
    return QString::fromLatin1(m_blocks.mid(begin, end - begin));
}

/// 0 for blocks that are no package.
int ReceiverImage::packageEnd() const
{
    qint64 end = 0;
    while (isSection(end)) {
        end += headerSize + sectionLength(end);
    }
    return int(end);
}

bool ReceiverImage::isSection(qint64 offset) const
{
    if (offset + headerSize > m_blocks.size()) {
        return false;
    }
    const QByteArray header = m_blocks.mid(int(offset), headerSize);
    // Zeros have the right CRC, too, but are what a block is wrongly filled up with.
    return header.count('\0') < headerSize
        && qFromLittleEndian<quint16>(header.constData() + headerCrcOffset)
        == xmodemCrc(header.constData(), headerCrcOffset)
        && offset + headerSize + sectionLength(offset) <= m_blocks.size();
}

qint64 ReceiverImage::sectionLength(qint64 offset) const
{
    return qFromLittleEndian<quint32>(m_blocks.constData() + offset + lengthOffset);
}

int ReceiverImage::contentEnd() const
{
    const int least = qMax(packageEnd(), m_blocks.size() - XmodemReceiver::blockSize);
    int end = m_blocks.size();
    while (end > least && m_blocks.at(end - 1) == padding) {
        --end;
    }
    return end;
}

} // namespace hardware
