#pragma once

#include "hardware/receiver/serialline.h"
#include "hardware/unit/clock.h"

#include <QByteArray>

#include <functional>

class QTemporaryDir;

/// What is on the other end of the GPS receiver's line: takes files, with the line's pace or
/// without any, as fast as it can.
class LineEnd
{
public:
    explicit LineEnd(bool isPaced);
    ~LineEnd();

    static const int baud = 115200; ///< of a line with a pace

    int port() const { return m_port; }

    /// Milliseconds a block, from the first frame's arrival to that of the EOT, for whatever sends.
    double take(int count, const std::function<void()> &send);

private:
    double takeFile();

    const hardware::Clock m_clock;
    hardware::SerialLine m_line;
    const int m_speed;
    int m_port;
};

/// Writes a file of that many blocks of 1024 bytes; its path, for the C library.
QByteArray writeBlocks(const QTemporaryDir &folder, int count);

/// Writes a valid package with that many bytes of content, a multiple of four, piece by piece: what
/// the program has ever held in memory is looked at. Its path, for the C library.
QByteArray writePackage(const QTemporaryDir &folder, int size);
