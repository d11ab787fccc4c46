#pragma once

#include <QByteArray>

/// Bytes of every value, in an order that no text has.
inline QByteArray knownBytes(int size, int seed)
{
    QByteArray bytes(size, '\0');
    for (int index = 0; index < size; ++index) {
        bytes[index] = char((index * 31 + seed + index / 256) & 0xFF);
    }
    return bytes;
}
