#pragma once

#include <QByteArray>

namespace hardware
{

/// The CRC-32 of gzip and Ethernet (reflected polynomial 0xEDB88320, all bits set at first,
/// inverted at the end), over data that comes in pieces.
class Crc32
{
public:
    void add(const QByteArray &bytes);

    /// Of everything added so far; 0 for nothing.
    quint32 value() const;

private:
    quint32 m_register = 0xFFFFFFFF;
};

} // namespace hardware
