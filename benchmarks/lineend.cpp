#include "lineend.h"

#include "gps/gpspackage.h"

#include "hardware/receiver/xmodemreceiver.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <thread>

using hardware::XmodemReceiver;

namespace
{

const int fastest = 460800;

quint32 wordAt(int index)
{
    return quint32(index) * 2654435761u;
}

void write(QFile &file, const void *bytes, qint64 count)
{
    if (file.write(static_cast<const char *>(bytes), count) != count) {
        qFatal("The benchmark's file cannot be written.");
    }
}

void openIn(const QTemporaryDir &folder, QFile *file)
{
    file->setFileName(folder.filePath(QStringLiteral("file")));
    if (!file->open(QIODevice::WriteOnly)) {
        qFatal("The benchmark's file cannot be opened.");
    }
}

} // namespace

LineEnd::LineEnd(bool isPaced)
    : m_clock(isPaced ? 1 : 1e9)
    , m_line(m_clock)
    , m_speed(isPaced ? baud : fastest)
{
    QString error;
    if (!m_line.open(&error)) {
        qFatal("%s", qPrintable(error));
    }
    m_line.setPortSpeed(m_speed);
    m_port = open(QFile::encodeName(m_line.port()).constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
}

LineEnd::~LineEnd()
{
    close(m_port);
}

double LineEnd::take(int count, const std::function<void()> &send)
{
    double milliseconds = 0;
    std::thread thread([&] { milliseconds = takeFile() / count; });
    send();
    thread.join();
    return milliseconds;
}

double LineEnd::takeFile()
{
    XmodemReceiver transfer;
    QElapsedTimer clock;
    pollfd ready = {m_line.descriptor(), POLLIN, 0};
    m_line.say("C", m_speed);
    for (;;) {
        poll(&ready, 1, -1);
        if (!clock.isValid()) {
            clock.start();
        }
        const double milliseconds = clock.nsecsElapsed() / 1e6;
        const QByteArray heard = m_line.hear(m_speed);
        for (const char byte : heard) {
            const XmodemReceiver::Event event = transfer.take(byte);
            if (event != XmodemReceiver::Event::Nothing) {
                m_line.say(QByteArray(1, XmodemReceiver::ack), m_speed);
            }
            if (event == XmodemReceiver::Event::Ended) {
                return milliseconds;
            }
        }
    }
}

QByteArray writeBlocks(const QTemporaryDir &folder, int count)
{
    QFile file;
    openIn(folder, &file);
    const QByteArray content(count * 1024, 'b');
    write(file, content.constData(), content.size());
    return QFile::encodeName(file.fileName());
}

QByteArray writePackage(const QTemporaryDir &folder, int size)
{
    quint32 sum = 0;
    for (int index = 0; index < size / 4; ++index) {
        sum += wordAt(index);
    }
    uchar header[32] = {};
    qToLittleEndian(sum, header + 4);
    qToLittleEndian(quint32(size), header + 12);
    qToLittleEndian(get_crc16(header, 28), header + 28);
    QFile file;
    openIn(folder, &file);
    write(file, header, sizeof header);
    for (int index = 0; index < size / 4; ++index) {
        const quint32 word = qToLittleEndian(wordAt(index));
        write(file, &word, sizeof word);
    }
    return QFile::encodeName(file.fileName());
}
