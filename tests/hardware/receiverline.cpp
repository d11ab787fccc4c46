#include "receiverline.h"

#include "hardware/receiver/xmodemreceiver.h"

#include <QElapsedTimer>
#include <QFile>
#include <QtEndian>
#include <QtTest>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

ReceiverLine::ReceiverLine()
{
    open();
}

ReceiverLine::~ReceiverLine()
{
    close(m_port);
}

void ReceiverLine::open()
{
    close(m_port);
    receiver().setServiceReading(false);
    const QString port = m_unit.path(QStringLiteral("/dev/ttyS3"));
    m_port = ::open(QFile::encodeName(port).constData(), O_RDWR | O_NOCTTY);
    QVERIFY(m_port >= 0);
}

void ReceiverLine::setSpeed(speed_t speed)
{
    setPortSpeed(m_port, speed);
    // Until the receiver has noticed.
    QTest::qWait(100);
}

void ReceiverLine::say(const QByteArray &bytes)
{
    QCOMPARE(write(m_port, bytes.constData(), size_t(bytes.size())), ssize_t(bytes.size()));
}

QByteArray ReceiverLine::answer()
{
    pollfd port = {m_port, POLLIN, 0};
    char bytes[1024];
    if (poll(&port, 1, 500) <= 0) {
        return QByteArray();
    }
    const ssize_t count = read(m_port, bytes, sizeof bytes);
    return QByteArray(bytes, int(qMax<ssize_t>(0, count)));
}

bool ReceiverLine::hears(const QByteArray &text)
{
    QElapsedTimer timer;
    timer.start();
    QByteArray heard;
    while (!heard.contains(text) && timer.elapsed() < 30000) {
        heard += answer();
    }
    return heard.contains(text);
}

void setPortSpeed(int port, speed_t speed)
{
    termios options;
    tcgetattr(port, &options);
    cfsetospeed(&options, speed);
    cfsetispeed(&options, speed);
    tcsetattr(port, TCSANOW, &options);
}

QByteArray xmodemFrame(int number, const QByteArray &data)
{
    const quint16 crc = hardware::xmodemCrc(data.constData(), data.size());
    return QByteArray(1, 0x02) + char(number) + char(255 - (number & 0xFF)) + data + char(crc >> 8)
        + char(crc);
}

QByteArray receiverPackage(const QByteArray &payload)
{
    QByteArray header(32, '\0');
    qToLittleEndian(quint32(payload.size()), header.data() + 12);
    qToLittleEndian(hardware::xmodemCrc(header.constData(), 28), header.data() + 28);
    return header + payload;
}
