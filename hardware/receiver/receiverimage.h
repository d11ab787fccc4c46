#pragma once

#include <QByteArray>
#include <QString>

namespace hardware
{

/// What a receiver makes of the blocks in which an image came: packages are sections of 32 header
/// bytes, with the payload's length at offset 12 and the CRC of the bytes before it at offset 28
/// (little-endian), and a payload.
class ReceiverImage
{
public:
    /// \a blocks: the transfer's data, with what fills up the last block.
    explicit ReceiverImage(const QByteArray &blocks);

    /// Without what fills up the last block.
    QByteArray content() const;

    /// False when the last block is filled up with anything but 0x1A behind the package's end and
    /// the up to 32 bytes that may follow it.
    bool isFilledUpRight() const;

    /// The version that the image tells, a text behind "GNSS-VERSION="; without one, its CRC.
    QString version() const;

private:
    int packageEnd() const;
    bool isSection(qint64 offset) const;
    qint64 sectionLength(qint64 offset) const;
    int contentEnd() const;

    const QByteArray m_blocks;
};

} // namespace hardware
