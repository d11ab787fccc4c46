#include "hardware/memory/physicalmemory.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

using hardware::PhysicalMemory;

class tst_PhysicalMemory : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void newMemoryHoldsTheResetValues();
    void isASparseFileOfTheWholeAddressSpace();
    void keepsWhatAFormerStartLeft();
    void writeIsInTheFileInTheUnitsByteOrder();
    void writeIsJournalledWithNameBeforeAndAfter();
    void lowBitsOfAnAddressCountAsZero();
    void lastWordOfTheAddressSpaceIsUsable();
    void fillReachesEveryNamedRegister();
    void compareFindsWhatAProgramChanged();
    void compareNamesWhatHasNoName();
    void compareLooksAtWatchedPagesOnly();
    void compareDoesNotReportWhatWriteDid();
    void wordThatIsWrittenUnchangedLeavesNoTrace();
    void tableThatIsWrongIsAnError();
    void fileThatCannotBeMadeIsAnError();

private:
    void writeAsProgram(quint32 address, quint32 value);

    QScopedPointer<OpenUnit> m_unit;
};

namespace
{

const quint32 swing = 0x9C000190;
const quint32 role = 0x9C00018C;

} // namespace

void tst_PhysicalMemory::init()
{
    m_unit.reset(new OpenUnit);
}

void tst_PhysicalMemory::writeAsProgram(quint32 address, quint32 value)
{
    QFile file(m_unit->path(QStringLiteral("/dev/mem")));
    QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    QVERIFY(file.seek(address));
    QCOMPARE(file.write(reinterpret_cast<const char *>(&value), sizeof value),
             qint64(sizeof value));
}

void tst_PhysicalMemory::newMemoryHoldsTheResetValues()
{
    // As the table that a new unit starts with has them.
    QCOMPARE((*m_unit)->memory().read(role), 0x00070007u);
    QCOMPARE((*m_unit)->memory().read(swing), 0x7F7F4040u);
    QCOMPARE((*m_unit)->memory().read(0x9C004A9C), 0x10u);
    QCOMPARE((*m_unit)->memory().read(0x9C004A90), 0u);
    QCOMPARE((*m_unit)->memory().read(0x12345678), 0u);
}

void tst_PhysicalMemory::isASparseFileOfTheWholeAddressSpace()
{
    const QFileInfo info(m_unit->path(QStringLiteral("/dev/mem")));
    QCOMPARE(info.size(), Q_INT64_C(0x100000000));
}

void tst_PhysicalMemory::keepsWhatAFormerStartLeft()
{
    const QTemporaryDir folder;
    QString error;
    {
        hardware::Unit first(folder.path());
        QVERIFY2(first.open(&error), qPrintable(error));
        first.memory().write(swing, 0x12345678);
    }
    hardware::Unit second(folder.path());
    QVERIFY2(second.open(&error), qPrintable(error));
    QCOMPARE(second.memory().read(swing), 0x12345678u);
}

void tst_PhysicalMemory::writeIsInTheFileInTheUnitsByteOrder()
{
    (*m_unit)->memory().write(swing, 0x12345678);
    QFile file(m_unit->path(QStringLiteral("/dev/mem")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.seek(swing));
    quint32 word = 0;
    const QByteArray bytes = file.read(sizeof word);
    std::memcpy(&word, bytes.constData(), sizeof word);
    QCOMPARE(word, 0x12345678u);
}

void tst_PhysicalMemory::writeIsJournalledWithNameBeforeAndAfter()
{
    (*m_unit)->memory().write(swing, 0xAB);
    (*m_unit)->memory().write(0x1000, 1);
    QCOMPARE((*m_unit)->journal().lines(),
             QStringList({QStringLiteral("memory set 9C000190 phySwing 7F7F4040 -> 000000AB"),
                          QStringLiteral("memory set 00001000 - 00000000 -> 00000001")}));
}

void tst_PhysicalMemory::lowBitsOfAnAddressCountAsZero()
{
    (*m_unit)->memory().write(swing + 3, 0xAB);
    QCOMPARE((*m_unit)->memory().read(swing), 0xABu);
    QCOMPARE((*m_unit)->memory().read(swing + 2), 0xABu);
    QCOMPARE((*m_unit)->memory().read(swing + 4), 0u);
}

void tst_PhysicalMemory::lastWordOfTheAddressSpaceIsUsable()
{
    PhysicalMemory &memory = (*m_unit)->memory();
    memory.write(0xFFFFFFFC, 0x55AA55AA);
    QCOMPARE(memory.read(0xFFFFFFFC), 0x55AA55AAu);
    memory.watch(0xFFFFFFFC, 4096);
    writeAsProgram(0xFFFFFFFC, 1);
    memory.compare();
    QCOMPARE((*m_unit)->journal().lines(QStringLiteral("memory write")),
             QStringList(QStringLiteral("memory write FFFFFFFC - 55AA55AA -> 00000001")));
}

void tst_PhysicalMemory::fillReachesEveryNamedRegister()
{
    PhysicalMemory &memory = (*m_unit)->memory();
    memory.fill(0xA5A5A5A5);
    for (const hardware::MemoryRegister &entry : memory.registers().all()) {
        QCOMPARE(memory.read(entry.address), 0xA5A5A5A5u);
    }
    QCOMPARE(memory.read(0x9C000194), 0u);
    QCOMPARE((*m_unit)->journal().lines(QStringLiteral("memory set")).size(),
             memory.registers().all().size());
}

void tst_PhysicalMemory::compareFindsWhatAProgramChanged()
{
    PhysicalMemory &memory = (*m_unit)->memory();
    memory.watch(0x9C000000, 4096);
    writeAsProgram(swing, 0x41);
    writeAsProgram(role, 0x42);
    memory.compare();
    const QStringList expected(
        {QStringLiteral("memory write 9C00018C usbRole 00070007 -> 00000042"),
         QStringLiteral("memory write 9C000190 phySwing 7F7F4040 -> "
                        "00000041")});
    QCOMPARE((*m_unit)->journal().lines(), expected);
    memory.compare();
    QCOMPARE((*m_unit)->journal().lines(), expected);
}

void tst_PhysicalMemory::compareNamesWhatHasNoName()
{
    (*m_unit)->memory().watch(0x9C000000, 4096);
    writeAsProgram(0x9C000FFC, 7);
    (*m_unit)->memory().compare();
    QCOMPARE((*m_unit)->journal().lines(),
             QStringList(QStringLiteral("memory write 9C000FFC - 00000000 -> 00000007")));
}

void tst_PhysicalMemory::compareLooksAtWatchedPagesOnly()
{
    (*m_unit)->memory().watch(0x9C000FFC, 8); // reaches into the second page
    writeAsProgram(0x9C001000, 1);
    writeAsProgram(0x9C002000, 2);
    (*m_unit)->memory().compare();
    QCOMPARE((*m_unit)->journal().lines(),
             QStringList(QStringLiteral("memory write 9C001000 - 00000000 -> 00000001")));
}

void tst_PhysicalMemory::compareDoesNotReportWhatWriteDid()
{
    (*m_unit)->memory().watch(0x9C000000, 4096);
    (*m_unit)->memory().write(swing, 5);
    (*m_unit)->memory().compare();
    QVERIFY((*m_unit)->journal().lines(QStringLiteral("memory write")).isEmpty());
}

void tst_PhysicalMemory::wordThatIsWrittenUnchangedLeavesNoTrace()
{
    (*m_unit)->memory().watch(0x9C000000, 4096);
    writeAsProgram(role, 0x00070007);
    (*m_unit)->memory().compare();
    QVERIFY((*m_unit)->journal().lines().isEmpty());
}

void tst_PhysicalMemory::tableThatIsWrongIsAnError()
{
    const QTemporaryDir folder;
    writeFile(folder.filePath(QStringLiteral("registers.ini")), "[a]\naddress=1\nreset=0\n");
    hardware::Unit unit(folder.path());
    QString error;
    QVERIFY(!unit.open(&error));
    QVERIFY2(error.contains(QLatin1String("registers.ini, line 2: register \"a\"")),
             qPrintable(error));
}

void tst_PhysicalMemory::fileThatCannotBeMadeIsAnError()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("dev/mem")));
    hardware::Unit unit(folder.path());
    QString error;
    QVERIFY(!unit.open(&error));
    QVERIFY2(error.contains(QLatin1String("/dev/mem\" cannot be read and written")),
             qPrintable(error));
}

FACTORY_TEST_GUILESS_MAIN(tst_PhysicalMemory)
#include "tst_physicalmemory.moc"
