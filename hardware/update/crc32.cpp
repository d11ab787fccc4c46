#include "crc32.h"

#include <array>

namespace hardware
{

namespace
{

constexpr quint32 polynomial = 0xEDB88320;

std::array<quint32, 256> makeTable()
{
    std::array<quint32, 256> table;
    for (quint32 byte = 0; byte < table.size(); ++byte) {
        quint32 value = byte;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value & 1) != 0 ? (value >> 1) ^ polynomial : value >> 1;
        }
        table[byte] = value;
    }
    return table;
}

} // namespace

void Crc32::add(const QByteArray &bytes)
{
    static const std::array<quint32, 256> table = makeTable();
    for (const char byte : bytes) {
        m_register = table[(m_register ^ quint8(byte)) & 0xFF] ^ (m_register >> 8);
    }
}

quint32 Crc32::value() const
{
    return ~m_register;
}

} // namespace hardware
