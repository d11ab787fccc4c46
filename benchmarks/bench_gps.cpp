// The GPS upgrade's costs: time for a block on a line without a pace and on one with 115200 baud,
// and the checking of a large package. What it takes at least, or what somebody else's program
// takes, is measured in the same run.

#include "gps/gpspackage.h"
#include "gps/gpsserial.h"
#include "gps/xmodemsender.h"
#include "lineend.h"
#include "measurement.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>

namespace
{

const int rounds = 15;
const int blocks = 40;
const int pacedBlocks = 20;

/// The 10 ms ahead of each answer, as long as this host makes them.
double pauseOf(int count)
{
    QElapsedTimer clock;
    clock.start();
    for (int block = 0; block < count; ++block) {
        usleep(10000);
    }
    return clock.nsecsElapsed() / 1e6 / count;
}

void sendBySx(int port, const QByteArray &file)
{
    QProcess process;
    const QString terminal = QStringLiteral("/proc/%1/fd/%2").arg(getpid()).arg(port);
    process.setStandardInputFile(terminal);
    process.setStandardOutputFile(terminal);
    process.start(QStringLiteral("sx"), {QStringLiteral("-k"), QFile::decodeName(file)});
    if (!process.waitForStarted()) {
        qFatal("sx of the package lrzsz is not there.");
    }
    process.waitForFinished();
}

QVector<double> sums(QVector<double> values, const QVector<double> &others)
{
    for (int index = 0; index < values.size(); ++index) {
        values[index] += others.at(index);
    }
    return values;
}

void measureUnpaced(const QTemporaryDir &folder)
{
    const QByteArray file = writeBlocks(folder, blocks);
    QVector<double> ours;
    QVector<double> pauses;
    QVector<double> theirs;
    for (int round = 0; round < rounds; ++round) {
        const Quiet quiet;
        LineEnd receiver(false);
        ours.append(receiver.take(blocks, [&] { xmodem_send(receiver.port(), file.constData()); }));
        pauses.append(pauseOf(blocks));
        LineEnd other(false);
        theirs.append(other.take(blocks, [&] { sendBySx(other.port(), file); }));
    }
    const auto ms = QStringLiteral("ms a block");
    printRow(QStringLiteral("unpaced: xmodem_send()"), ours, ms);
    printRow(QStringLiteral("  the 10 ms ahead of each answer"), pauses, ms);
    printRow(QStringLiteral("  sx -k"), theirs, ms);
    printRatio(QStringLiteral("  ratio to both together"), ours, sums(pauses, theirs));
}

void measurePaced(const QTemporaryDir &folder)
{
    const QByteArray file = writeBlocks(folder, pacedBlocks);
    QVector<double> ours;
    // A frame of 1029 bytes and an answer of one, ten bits each.
    const QVector<double> wire(rounds, 1030 * 10 * 1000.0 / LineEnd::baud);
    QVector<double> pauses;
    for (int round = 0; round < rounds; ++round) {
        const Quiet quiet;
        LineEnd receiver(true);
        ours.append(
            receiver.take(pacedBlocks, [&] { xmodem_send(receiver.port(), file.constData()); }));
        pauses.append(pauseOf(pacedBlocks));
    }
    printRow(QStringLiteral("115200 baud: xmodem_send()"), ours, QStringLiteral("ms a block"));
    printRow(QStringLiteral("  the wire"), wire, QStringLiteral("ms a block"));
    printRow(QStringLiteral("  the 10 ms ahead of each answer"), pauses,
             QStringLiteral("ms a block"));
    printRatio(QStringLiteral("  ratio to both together"), ours, sums(pauses, wire));
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

void measureCheck(const QTemporaryDir &folder)
{
    const int size = 64 * 1024 * 1024;
    QVector<double> ours;
    QVector<double> plain;
    const QTemporaryDir other;
    const QByteArray file = writePackage(folder, size);
    const QByteArray small = writePackage(other, 1024);
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
