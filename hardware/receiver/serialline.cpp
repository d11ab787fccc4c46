#include "serialline.h"

#include "hardware/unit/clock.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iterator>

namespace hardware
{

namespace
{

const int maxBytesHeard = 256;
const int bitsPerByte = 10; // start bit, eight data bits, stop bit
const int noiseBit = 0x80;

struct Speed
{
    speed_t constant;
    int baud;
};

const Speed speeds[] = {
    {B4800, 4800},   {B9600, 9600},     {B19200, 19200},   {B38400, 38400},
    {B57600, 57600}, {B115200, 115200}, {B230400, 230400}, {B460800, 460800},
};

/// What a receiver makes of bits that it samples at the wrong moments: no text, and no zero bytes.
QByteArray garbled(QByteArray bytes)
{
    for (char &byte : bytes) {
        byte = char(~byte | noiseBit);
    }
    return bytes;
}

void makeRaw(int port, speed_t speed)
{
    termios options = {};
    tcgetattr(port, &options);
    cfmakeraw(&options);
    options.c_cflag |= CLOCAL | CREAD;
    cfsetispeed(&options, speed);
    cfsetospeed(&options, speed);
    tcsetattr(port, TCSANOW, &options);
}

} // namespace

SerialLine::SerialLine(const Clock &clock)
    : m_clock(clock)
{
}

SerialLine::~SerialLine()
{
    close();
}

bool SerialLine::open(QString *error)
{
    close();
    m_device = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    char name[64];
    if (m_device >= 0 && grantpt(m_device) == 0 && unlockpt(m_device) == 0
        && ptsname_r(m_device, name, sizeof name) == 0) {
        // Held open, so that the line lives on when the unit's software closes the port.
        m_port = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
    if (m_port < 0) {
        *error = QStringLiteral("The host has no pseudo-terminal for a serial line: %1.")
                     .arg(QString::fromLocal8Bit(std::strerror(errno)));
        close();
        return false;
    }
    m_portName = QString::fromLocal8Bit(name);
    return true;
}

bool SerialLine::isOpen() const
{
    return m_device >= 0;
}

QString SerialLine::port() const
{
    return m_portName;
}

int SerialLine::descriptor() const
{
    return m_device;
}

void SerialLine::hangUp()
{
    close();
}

int SerialLine::portSpeed() const
{
    termios options;
    if (m_port < 0 || tcgetattr(m_port, &options) != 0) {
        return 0;
    }
    const speed_t speed = cfgetospeed(&options);
    const Speed *known = std::find_if(std::begin(speeds), std::end(speeds),
                                      [speed](const Speed &s) { return s.constant == speed; });
    return known == std::end(speeds) ? 0 : known->baud;
}

void SerialLine::setPortSpeed(int baud)
{
    const Speed *known = std::find_if(std::begin(speeds), std::end(speeds),
                                      [baud](const Speed &s) { return s.baud == baud; });
    if (m_port >= 0 && known != std::end(speeds)) {
        makeRaw(m_port, known->constant);
        watchSpeed();
    }
}

bool SerialLine::hasUnread() const
{
    int count = 0;
    return m_port >= 0 && ioctl(m_port, FIONREAD, &count) == 0 && count > 0;
}

void SerialLine::discardUnread()
{
    if (m_port >= 0) {
        tcflush(m_port, TCIFLUSH);
    }
}

QByteArray SerialLine::hear(int baud)
{
    const int speedBefore = m_watchedSpeed;
    char bytes[maxBytesHeard];
    const ssize_t count = m_device < 0 ? 0 : read(m_device, bytes, sizeof bytes);
    if (count <= 0) {
        return QByteArray();
    }
    watchSpeed();
    // Bytes that were already there follow the former ones without a gap, however late this thread
    // woke up.
    if (!m_moreWasWaiting) {
        m_hearingUntil = qMax(m_hearingUntil, m_clock.elapsed());
    }
    m_moreWasWaiting = count == maxBytesHeard;
    passTime(&m_hearingUntil, int(count), baud);
    const QByteArray heard(bytes, int(count));
    return baud == speedBefore || baud == m_watchedSpeed ? heard : garbled(heard);
}

void SerialLine::say(const QByteArray &bytes, int baud)
{
    if (m_device < 0) {
        return;
    }
    m_sayingUntil = qMax(m_sayingUntil, m_clock.elapsed());
    passTime(&m_sayingUntil, bytes.size(), baud);
    const QByteArray sent = portSpeed() == baud ? bytes : garbled(bytes);
    const ssize_t written = write(m_device, sent.constData(), size_t(sent.size()));
    Q_UNUSED(written);
}

void SerialLine::watchSpeed()
{
    m_watchedSpeed = portSpeed();
}

void SerialLine::close()
{
    for (int *descriptor : {&m_port, &m_device}) {
        if (*descriptor >= 0) {
            ::close(*descriptor);
            *descriptor = -1;
        }
    }
    m_portName.clear();
}

/// Waits until that many more bytes have passed.
void SerialLine::passTime(qint64 *busyUntil, int bytes, int baud) const
{
    *busyUntil += 1000000000LL * bitsPerByte * bytes / baud;
    m_clock.sleep((*busyUntil - m_clock.elapsed()) / 1000);
}

} // namespace hardware
