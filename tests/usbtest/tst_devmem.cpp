#include "usbtest/devmem.h"

#include "outputcapture.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QDir>
#include <QtTest>

#include <unistd.h>

class TestDevmem : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void writesPrintsClosesAndUnmapsInThisOrder();
    void lastWordOfThePage();
    void unmapIsGivenTheRegistersAddressAndLeavesTheMapping();
    void unmapAtThePagesStartLeavesNothing();
    void descriptorZeroIsNotClosed();
    void missingDeviceIsToldAndLeavesTheValue_data();
    void missingDeviceIsToldAndLeavesTheValue();
    void refusedMappingIsToldAndLeavesTheValue_data();
    void refusedMappingIsToldAndLeavesTheValue();
};

namespace
{

const unsigned int page = 0x9C000000;
const unsigned int swingOffset = 0x190;

QString outputFile(const TestUnit &unit)
{
    return unit.path(QStringLiteral("/output"));
}

int openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System).size();
}

QStringList memoryLines(const TestUnit &unit)
{
    return unit.journal(QStringLiteral("/^memory (?!set)/"));
}

} // namespace

void TestDevmem::initTestCase()
{
    // From the first output on, so that each print is a write of its own.
    QCOMPARE(std::setvbuf(stdout, nullptr, _IONBF, 0), 0);
}

void TestDevmem::writesPrintsClosesAndUnmapsInThisOrder()
{
    TestUnit unit;
    unsigned int value = 0x55AA1122;
    {
        // The print finds its place among the journal's lines.
        const OutputCapture capture(unit.path(QStringLiteral("/journal.log")));
        devmem_main(page, swingOffset, 1, &value);
    }
    const QList<QByteArray> said = readFile(unit.path(QStringLiteral("/journal.log"))).split('\n');
    QStringList lines;
    for (const QByteArray &line : said) {
        const QString text = QString::fromLatin1(line);
        lines.append(text.startsWith(QLatin1String("0x")) ? text
                                                          : text.section(QLatin1Char(' '), 2));
    }
    lines.removeFirst(); // the start's date, version and speed
    // The write is found when the device is closed; what was printed is the word as written.
    QCOMPARE(lines,
             QStringList({
                 QStringLiteral("gate open(\"/dev/mem\", O_RDWR|O_NONBLOCK)"),
                 QStringLiteral("memory open"),
                 QStringLiteral("gate mmap(\"/dev/mem\", 4096, PROT_READ|PROT_WRITE, MAP_SHARED)"),
                 QStringLiteral("memory map 9C000000"),
                 QStringLiteral("0x55aa1122 "),
                 QStringLiteral("memory write 9C000190 phySwing 7F7F4040 -> 55AA1122"),
                 QStringLiteral("memory close"),
                 QStringLiteral("memory unmap 9C000190 refused: Invalid argument"),
                 QString(),
             }));
}

void TestDevmem::lastWordOfThePage()
{
    TestUnit unit;
    unsigned int value = 0xFFFFFFFF;
    devmem_main(0xFFFFF000, 0xFFC, 1, &value);
    QCOMPARE(value, 0xFFFFFFFFu);
    QCOMPARE(unit.unit().memory().read(0xFFFFFFFC), 0xFFFFFFFFu);
}

void TestDevmem::unmapIsGivenTheRegistersAddressAndLeavesTheMapping()
{
    TestUnit unit;
    unsigned int value = 0;
    devmem_main(page, swingOffset, 0, &value);
    QCOMPARE(unit.unit().memoryDevice().mappings(), 1);
    devmem_main(page, swingOffset, 0, &value);
    QCOMPARE(unit.unit().memoryDevice().mappings(), 2);
    QCOMPARE(unit.journal(QStringLiteral("memory unmap 9C000190 refused")).size(), 2);
}

void TestDevmem::unmapAtThePagesStartLeavesNothing()
{
    TestUnit unit;
    unsigned int value = 0;
    devmem_main(page, 0, 0, &value);
    QCOMPARE(unit.unit().memoryDevice().mappings(), 0);
    QCOMPARE(memoryLines(unit).constLast(), QStringLiteral("memory unmap 9C000000"));
}

void TestDevmem::descriptorZeroIsNotClosed()
{
    TestUnit unit;
    const int standardInput = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    unsigned int value = 0;
    devmem_main(page, swingOffset, 0, &value);
    const bool isOpen = unit.unit().memoryDevice().isOpen(0);
    close(0);
    if (standardInput >= 0) {
        dup2(standardInput, STDIN_FILENO);
        close(standardInput);
    }
    QVERIFY(isOpen);
    QCOMPARE(value, 0x7F7F4040u);
}

void TestDevmem::missingDeviceIsToldAndLeavesTheValue_data()
{
    QTest::addColumn<int>("write");
    QTest::newRow("read") << 0;
    QTest::newRow("write") << 1;
}

void TestDevmem::missingDeviceIsToldAndLeavesTheValue()
{
    QFETCH(int, write);
    TestUnit unit;
    unit.unit().memoryDevice().setFault(hardware::MemoryDevice::Missing);
    unsigned int value = 0xCAFE;
    QByteArray output;
    {
        const OutputCapture capture(outputFile(unit));
        devmem_main(page, swingOffset, char(write), &value);
        output = capture.text();
    }
    QCOMPARE(output, QByteArray("open(/dev/mem) failed.\n"));
    QCOMPARE(value, 0xCAFEu);
    QCOMPARE(unit.unit().memory().read(page + swingOffset), 0x7F7F4040u);
    QCOMPARE(memoryLines(unit),
             QStringList(QStringLiteral("memory open refused: No such file or directory")));
}

void TestDevmem::refusedMappingIsToldAndLeavesTheValue_data()
{
    missingDeviceIsToldAndLeavesTheValue_data();
}

void TestDevmem::refusedMappingIsToldAndLeavesTheValue()
{
    QFETCH(int, write);
    TestUnit unit;
    unit.unit().memoryDevice().setFault(hardware::MemoryDevice::MapRefused);
    const int before = openDescriptors();
    unsigned int value = 0xCAFE;
    QByteArray output;
    {
        const OutputCapture capture(outputFile(unit));
        devmem_main(page, swingOffset, char(write), &value);
        output = capture.text();
    }
    QCOMPARE(output, QByteArray("mmap failed\n"));
    QCOMPARE(value, 0xCAFEu);
    QCOMPARE(unit.unit().memory().read(page + swingOffset), 0x7F7F4040u);
    // The descriptor stays open.
    QCOMPARE(openDescriptors(), before + 1);
    QCOMPARE(memoryLines(unit),
             QStringList({QStringLiteral("memory open"),
                          QStringLiteral("memory map 9C000000 refused: Operation not permitted")}));
}

FACTORY_TEST_MAIN(TestDevmem)
#include "tst_devmem.moc"
