// Reading a register of the unit's memory as the pages do, beside its steps by hand on a file of
// the host, and beside starting the tool that people use on a shell. The tool is started without an
// address, since this machine's memory is not to be read: what it costs is the process.

#include "measurement.h"
#include "support/testunit.h"
#include "usbtest/devmem.h"

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryFile>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>

namespace
{

const int rounds = 2000;
const int processes = 50;
const unsigned int page = 0x9C000000;
const unsigned int offset = 0x18C;
const std::size_t pageSize = 4096;

std::uint32_t readByHand(const QByteArray &file)
{
    const int descriptor = open(file.constData(), O_RDWR | O_NONBLOCK);
    void *memory = mmap(nullptr, pageSize, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    if (memory == MAP_FAILED) {
        qFatal("The benchmark's file cannot be mapped.");
    }
    const auto *words = static_cast<const volatile std::uint32_t *>(memory);
    const std::uint32_t word = words[offset / sizeof *words];
    std::printf("0x%x \n", word);
    munmap(memory, pageSize);
    close(descriptor);
    return word;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ignoreMessages();
    QTemporaryFile file;
    if (!file.open() || !file.resize(pageSize)) {
        qFatal("The benchmark's file cannot be made.");
    }
    const QByteArray path = QFile::encodeName(file.fileName());

    TestUnit unit;
    QVector<double> ours;
    QVector<double> byHand;
    for (int round = -1; round < rounds; ++round) {
        const Quiet quiet;
        unsigned int word = 0;
        const double first = microseconds([&] { devmem_main(page, offset, 0, &word); });
        const double second = microseconds([&] { readByHand(path); });
        if (round >= 0) { // The first round only warms up.
            ours.append(first);
            byHand.append(second);
        }
    }
    QVector<double> tool;
    for (int round = 0; round < processes; ++round) {
        tool.append(microseconds([] {
            QProcess process;
            process.start(QStringLiteral("busybox"), {QStringLiteral("devmem")});
            if (!process.waitForStarted()) {
                qFatal("busybox is not there.");
            }
            process.waitForFinished();
        }));
    }
    const auto us = QStringLiteral("us");
    printRow(QStringLiteral("a register: devmem_main()"), ours, us);
    printRow(QStringLiteral("  open, mmap, read, munmap, close"), byHand, us);
    printRatio(QStringLiteral("  ratio"), ours, byHand);
    printRow(QStringLiteral("  a process of busybox devmem"), tool, us);
    return 0;
}
