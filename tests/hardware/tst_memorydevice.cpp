// The memory device as a program finds it behind the gate: its calls are those of the C library.

#include "hardware/memory/memorydevice.h"

#include "gate/gate.h"
#include "hardware/unit/gatebypass.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QtTest>

#include <cerrno>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

using hardware::Gate;
using hardware::MemoryDevice;

class tst_MemoryDevice : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyCallIsJournalledWithTheWriteBefore();
    void openingIn64BitFormIsSeenToo();
    void mappingIsOfTheAddressGiven();
    void unmappingElsewhereInThePageIsRefusedAndTheMappingStays();
    void writeThroughALeftMappingIsFoundWithTheNextCall();
    void twoDescriptorsAreTwo();
    void missingDeviceCannotBeOpened();
    void removedDeviceCannotBeOpened();
    void refusedMappingLeavesTheDescriptorOpen();
    void faultCanBeTakenBack();
    void otherFilesAndMappingsPassUnseen();
    void hostAccessPassesUnseen();
    void whatAProgramLeavesBehindEndsWithIt();
    void errnoIsKept();

private:
    QStringList journal() const { return (*m_unit)->journal().lines(QStringLiteral("memory")); }
    MemoryDevice &device() const { return (*m_unit)->memoryDevice(); }

    QScopedPointer<OpenUnit> m_unit;
    QScopedPointer<Gate> m_gate;
};

namespace
{

const off_t page = 0x9C000000;
const size_t pageSize = 4096;

volatile quint32 *word(void *mapped, int offset)
{
    return reinterpret_cast<volatile quint32 *>(static_cast<char *>(mapped) + offset);
}

void *mapPage(int descriptor)
{
    return mmap(nullptr, pageSize, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, page);
}

} // namespace

void tst_MemoryDevice::init()
{
    m_unit.reset(new OpenUnit);
    m_gate.reset(new Gate(**m_unit));
}

void tst_MemoryDevice::cleanup()
{
    m_gate.reset();
    m_unit.reset();
}

void tst_MemoryDevice::everyCallIsJournalledWithTheWriteBefore()
{
    const int descriptor = open("/dev/mem", O_RDWR | O_NONBLOCK);
    QVERIFY(descriptor >= 0);
    void *mapped = mapPage(descriptor);
    QVERIFY(mapped != MAP_FAILED);
    QCOMPARE(device().mappings(), 1);
    *word(mapped, 0x190) = 0x11223344;
    close(descriptor);
    *word(mapped, 0x18C) = 5;
    QCOMPARE(munmap(mapped, pageSize), 0);
    QCOMPARE(device().mappings(), 0);
    QCOMPARE(journal(),
             QStringList({
                 QStringLiteral("memory open"),
                 QStringLiteral("memory map 9C000000"),
                 QStringLiteral("memory write 9C000190 phySwing 7F7F4040 -> 11223344"),
                 QStringLiteral("memory close"),
                 QStringLiteral("memory write 9C00018C usbRole 00070007 -> 00000005"),
                 QStringLiteral("memory unmap 9C000000"),
             }));
    QCOMPARE((*m_unit)->memory().read(0x9C000190), 0x11223344u);
}

void tst_MemoryDevice::openingIn64BitFormIsSeenToo()
{
    const int descriptor = open64("/dev/mem", O_RDWR);
    QVERIFY(descriptor >= 0);
    void *mapped = mmap64(nullptr, pageSize, PROT_READ, MAP_SHARED, descriptor, 0x9C102000);
    QVERIFY(mapped != MAP_FAILED);
    QCOMPARE(munmap(mapped, pageSize), 0);
    close(descriptor);
    QCOMPARE(
        journal(),
        QStringList({QStringLiteral("memory open"), QStringLiteral("memory map 9C102000"),
                     QStringLiteral("memory unmap 9C102000"), QStringLiteral("memory close")}));
}

void tst_MemoryDevice::mappingIsOfTheAddressGiven()
{
    (*m_unit)->memory().write(0x9C004A9C, 0xCAFE);
    const int descriptor = open("/dev/mem", O_RDWR);
    void *mapped =
        mmap(nullptr, pageSize, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0x9C004000);
    QVERIFY(mapped != MAP_FAILED);
    QCOMPARE(quint32(*word(mapped, 0xA9C)), 0xCAFEu);
    // What is set from outside is seen in the mapping.
    (*m_unit)->memory().write(0x9C004A9C, 0xF00D);
    QCOMPARE(quint32(*word(mapped, 0xA9C)), 0xF00Du);
    munmap(mapped, pageSize);
    close(descriptor);
}

void tst_MemoryDevice::unmappingElsewhereInThePageIsRefusedAndTheMappingStays()
{
    const int descriptor = open("/dev/mem", O_RDWR);
    void *mapped = mapPage(descriptor);
    close(descriptor);
    errno = 0;
    const int result = munmap(static_cast<char *>(mapped) + 0x190, pageSize);
    const int reason = errno;
    QCOMPARE(result, -1);
    QCOMPARE(reason, EINVAL);
    QCOMPARE(journal().constLast(),
             QStringLiteral("memory unmap 9C000190 refused: Invalid argument"));
    QCOMPARE(device().mappings(), 1);
    QCOMPARE(quint32(*word(mapped, 0x190)), 0x7F7F4040u);
    QCOMPARE(munmap(mapped, pageSize), 0);
    QCOMPARE(device().mappings(), 0);
}

void tst_MemoryDevice::writeThroughALeftMappingIsFoundWithTheNextCall()
{
    const int descriptor = open("/dev/mem", O_RDWR);
    void *mapped = mapPage(descriptor);
    close(descriptor);
    *word(mapped, 0xA0) = 9;
    close(open("/dev/mem", O_RDWR));
    QCOMPARE(journal().mid(3),
             QStringList({QStringLiteral("memory write 9C0000A0 debugSelect 00000000 -> 00000009"),
                          QStringLiteral("memory open"), QStringLiteral("memory close")}));
    munmap(mapped, pageSize);
}

void tst_MemoryDevice::twoDescriptorsAreTwo()
{
    const int first = open("/dev/mem", O_RDWR);
    const int second = open("/dev/mem", O_RDWR);
    QVERIFY(device().isOpen(first) && device().isOpen(second));
    close(first);
    QVERIFY(!device().isOpen(first) && device().isOpen(second));
    close(second);
    QVERIFY(!device().isOpen(second));
}

void tst_MemoryDevice::missingDeviceCannotBeOpened()
{
    device().setFault(MemoryDevice::Missing);
    errno = 0;
    const int descriptor = open("/dev/mem", O_RDWR | O_NONBLOCK);
    const int reason = errno;
    QCOMPARE(descriptor, -1);
    QCOMPARE(reason, ENOENT);
    QCOMPARE(journal(),
             QStringList(QStringLiteral("memory open refused: No such file or directory")));
}

void tst_MemoryDevice::removedDeviceCannotBeOpened()
{
    QVERIFY(QFile::remove(m_unit->path(QStringLiteral("/dev/mem"))));
    QCOMPARE(open("/dev/mem", O_RDWR | O_NONBLOCK), -1);
    QCOMPARE(journal(),
             QStringList(QStringLiteral("memory open refused: No such file or directory")));
}

void tst_MemoryDevice::refusedMappingLeavesTheDescriptorOpen()
{
    device().setFault(MemoryDevice::MapRefused);
    const int descriptor = open("/dev/mem", O_RDWR);
    QVERIFY(descriptor >= 0);
    errno = 0;
    const void *mapped = mapPage(descriptor);
    const int reason = errno;
    QVERIFY(mapped == MAP_FAILED);
    QCOMPARE(reason, EPERM);
    QVERIFY(device().isOpen(descriptor));
    QCOMPARE(device().mappings(), 0);
    close(descriptor);
    QCOMPARE(journal(),
             QStringList({QStringLiteral("memory open"),
                          QStringLiteral("memory map 9C000000 refused: Operation not permitted"),
                          QStringLiteral("memory close")}));
}

void tst_MemoryDevice::faultCanBeTakenBack()
{
    device().setFault(MemoryDevice::Missing);
    QCOMPARE(open("/dev/mem", O_RDWR), -1);
    device().setFault(MemoryDevice::NoFault);
    QCOMPARE(device().fault(), MemoryDevice::NoFault);
    const int descriptor = open("/dev/mem", O_RDWR);
    QVERIFY(descriptor >= 0);
    close(descriptor);
}

void tst_MemoryDevice::otherFilesAndMappingsPassUnseen()
{
    writeFile(m_unit->path(QStringLiteral("/media/flash/file")), QByteArray(5000, 'x'));
    const int descriptor = open("/media/flash/file", O_RDWR);
    QVERIFY(descriptor >= 0);
    void *mapped = mmap(nullptr, pageSize, PROT_READ, MAP_SHARED, descriptor, 0);
    QVERIFY(mapped != MAP_FAILED);
    QCOMPARE(*static_cast<char *>(mapped), 'x');
    QCOMPARE(munmap(mapped, pageSize), 0);
    QCOMPARE(close(descriptor), 0);
    QCOMPARE(close(-1), -1);
    QVERIFY(journal().isEmpty());
}

void tst_MemoryDevice::hostAccessPassesUnseen()
{
    const hardware::GateBypass access;
    const int descriptor = open("/dev/null", O_RDWR);
    QVERIFY(descriptor >= 0);
    close(descriptor);
    QVERIFY(journal().isEmpty());
}

void tst_MemoryDevice::whatAProgramLeavesBehindEndsWithIt()
{
    const int descriptor = open("/dev/mem", O_RDWR);
    void *mapped = mapPage(descriptor);
    QVERIFY(mapped != MAP_FAILED);
    *word(mapped, 0x190) = 1;
    (*m_unit)->programsEnded();
    QCOMPARE(device().mappings(), 0);
    QVERIFY(!device().isOpen(descriptor));
    QCOMPARE(fcntl(descriptor, F_GETFD), -1);
    // Nobody can read there any more.
    int ends[2];
    QCOMPARE(pipe(ends), 0);
    QCOMPARE(write(ends[1], mapped, 1), ssize_t(-1));
    QCOMPARE(errno, EFAULT);
    close(ends[0]);
    close(ends[1]);
    QCOMPARE(journal(),
             QStringList({QStringLiteral("memory open"), QStringLiteral("memory map 9C000000"),
                          QStringLiteral("memory write 9C000190 phySwing 7F7F4040 -> 00000001")}));
}

void tst_MemoryDevice::errnoIsKept()
{
    errno = 123;
    const int descriptor = open("/dev/mem", O_RDWR);
    void *mapped = mapPage(descriptor);
    close(descriptor);
    munmap(mapped, pageSize);
    const int left = errno;
    QCOMPARE(left, 123);
}

FACTORY_TEST_GUILESS_MAIN(tst_MemoryDevice)
#include "tst_memorydevice.moc"
