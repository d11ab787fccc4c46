// The GPS upgrade's costs: time for a block on a line without a pace and on one with 115200 baud,
// and the checking of a large package. What it takes at least, or what somebody else's program
// takes, is measured in the same run.

#include "gps/gpspackage.h"
#include "gps/gpsserial.h"
#include "gps/xmodemsender.h"
#include "measurement.h"

#include "hardware/receiver/serialline.h"
#include "hardware/receiver/xmodemreceiver.h"
#include "hardware/unit/clock.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <functional>
#include <thread>

namespace
{

using hardware::XmodemReceiver;

const int rounds = 15;
const int blocks = 40;
const int pacedBlocks = 20;
const int baud = 115200;
const int fastest = 460800;

/// Takes files on a line, with or without its pace, as fast as it can.
class Receiver
{
public:
    explicit Receiver(bool isPaced)
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

    ~Receiver() { close(m_port); }

    int port() const { return m_port; }

    /// Milliseconds a block, from the first frame's arrival to that of the EOT, for whatever sends.
    double take(int count, const std::function<void()> &send)
    {
        double milliseconds = 0;
        std::thread thread([&] { milliseconds = takeFile() / count; });
        send();
        thread.join();
        return milliseconds;
    }

private:
    double takeFile()
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

    const hardware::Clock m_clock;
    hardware::SerialLine m_line;
    const int m_speed;
    int m_port;
};

QByteArray fileOf(const QTemporaryDir &folder, const QString &name, const QByteArray &content)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("The benchmark's file cannot be written.");
    }
    return QFile::encodeName(file.fileName());
}

/// The 10 ms ahead of each answer, as long as this host makes them.
double floorOf(int count)
{
    QElapsedTimer clock;
    clock.start();
    for (int block = 0; block < count; ++block) {
        usleep(10000);
    }
    return clock.nsecsElapsed() / 1e6 / count;
}

void sendBySx(int port, const QString &program, const QByteArray &file)
{
    QProcess process;
    const QString terminal = QStringLiteral("/proc/%1/fd/%2").arg(getpid()).arg(port);
    process.setStandardInputFile(terminal);
    process.setStandardOutputFile(terminal);
    process.start(program, {QStringLiteral("-k"), QFile::decodeName(file)});
    process.waitForFinished();
}

void measureUnpaced(const QTemporaryDir &folder)
{
    const QByteArray file =
        fileOf(folder, QStringLiteral("unpaced"), QByteArray(blocks * 1024, 'u'));
    const QString sx = QStandardPaths::findExecutable(QStringLiteral("sx"));
    QVector<double> ours;
    QVector<double> floors;
    QVector<double> theirs;
    for (int round = 0; round < rounds; ++round) {
        const Quiet quiet;
        Receiver receiver(false);
        ours.append(receiver.take(blocks, [&] { xmodem_send(receiver.port(), file.constData()); }));
        floors.append(floorOf(blocks));
        if (!sx.isEmpty()) {
            Receiver other(false);
            theirs.append(other.take(blocks, [&] { sendBySx(other.port(), sx, file); }));
        }
    }
    const auto ms = QStringLiteral("ms a block");
    printRow(QStringLiteral("unpaced: xmodem_send()"), ours, ms);
    printRow(QStringLiteral("  10 ms of sleep"), floors, ms);
    printRatio(QStringLiteral("  ratio to these 10 ms"), ours, floors);
    if (!theirs.isEmpty()) {
        printRow(QStringLiteral("  sx -k"), theirs, ms);
        printRatio(QStringLiteral("  ratio to sx -k"), ours, theirs);
    }
}

void measurePaced(const QTemporaryDir &folder)
{
    const QByteArray file =
        fileOf(folder, QStringLiteral("paced"), QByteArray(pacedBlocks * 1024, 'p'));
    QVector<double> ours;
    // A frame of 1029 bytes and an answer of one, ten bits each.
    const QVector<double> wire(rounds, 1030 * 10 * 1000.0 / baud);
    for (int round = 0; round < rounds; ++round) {
        const Quiet quiet;
        Receiver receiver(true);
        ours.append(
            receiver.take(pacedBlocks, [&] { xmodem_send(receiver.port(), file.constData()); }));
    }
    printRow(QStringLiteral("115200 baud: xmodem_send()"), ours, QStringLiteral("ms a block"));
    printRow(QStringLiteral("  the wire"), wire, QStringLiteral("ms a block"));
    printRatio(QStringLiteral("  ratio to the wire"), ours, wire);
}

/// What somebody would write: the same reads and the same sum, nothing else.
void plainSum(const QByteArray &path)
{
    std::FILE *file = std::fopen(path.constData(), "rb");
    quint32 sum = 0;
    quint32 words[256];
    while (std::fread(words, 1, sizeof words, file) == sizeof words) {
        for (const quint32 word : words) {
            sum += qFromLittleEndian(word);
        }
    }
    std::fclose(file);
    std::printf("%08x\n", sum);
}

long peakKilobytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

quint32 wordAt(int index)
{
    return quint32(index) * 2654435761u;
}

/// Written piece by piece: what this program has ever held in memory is looked at.
QByteArray packageOf(const QTemporaryDir &folder, int size)
{
    quint32 sum = 0;
    for (int index = 0; index < size / 4; ++index) {
        sum += wordAt(index);
    }
    uchar header[32] = {};
    qToLittleEndian(sum, header + 4);
    qToLittleEndian(quint32(size), header + 12);
    qToLittleEndian(get_crc16(header, 28), header + 28);
    QFile file(folder.filePath(QString::number(size)));
    file.open(QIODevice::WriteOnly);
    file.write(reinterpret_cast<const char *>(header), sizeof header);
    for (int index = 0; index < size / 4; ++index) {
        const quint32 word = qToLittleEndian(wordAt(index));
        file.write(reinterpret_cast<const char *>(&word), sizeof word);
    }
    return QFile::encodeName(file.fileName());
}

void measureCheck(const QTemporaryDir &folder)
{
    const int size = 64 * 1024 * 1024;
    QVector<double> ours;
    QVector<double> plain;
    const QByteArray file = packageOf(folder, size);
    const QByteArray small = packageOf(folder, 1024);
    int result = 0;
    {
        const Quiet quiet;
        result = check_file(small.constData(), 0);
    }
    const long before = peakKilobytes();
    for (int round = -1; round < rounds; ++round) {
        const Quiet quiet;
        const double first = microseconds([&] { result |= check_file(file.constData(), 0); }) / 1e3;
        const double second = microseconds([&] { plainSum(file); }) / 1e3;
        if (round >= 0) { // The first round only warms up.
            ours.append(first);
            plain.append(second);
        }
    }
    if (result != 0) {
        qFatal("The benchmark's package is not valid.");
    }
    const long after = peakKilobytes();
    printRow(QStringLiteral("checking 64 MiB: check_file()"), ours, QStringLiteral("ms"));
    printRow(QStringLiteral("  fread() of 1024 bytes, stdio's own buffer, and a sum"), plain,
             QStringLiteral("ms"));
    printRatio(QStringLiteral("  ratio"), ours, plain);
    std::printf("  memory: peak %ld kB before, %ld kB after\n", before, after);
}

} // namespace

int main()
{
    use_select_wait = 1;
    const QTemporaryDir folder;
    measureUnpaced(folder);
    measurePaced(folder);
    measureCheck(folder);
    return 0;
}
