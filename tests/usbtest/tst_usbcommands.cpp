// The console's commands for the hardware behind the USB pages.

#include "simulator/commands/allcommands.h"
#include "simulator/console/console.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

#include "gate/gate.h"
#include "hardware/unit/journalreader.h"
#include "hardware/unit/unit.h"
#include "support/testmain.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <algorithm>

using namespace simulator;

class TestUsbCommands : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void memoryListsTheRegisters();
    void memorySaysAndChangesAWord();
    void memoryTakesARegistersName();
    void memoryFillReachesEveryRegister();
    void memoryFaultIsSetAndTakenBack();
    void phyTellsThePortsState();
    void ncmTellsTheTestAndItsFigures();
    void ncmFaultIsSetAndTakenBack();
    void wrongCommands_data();
    void wrongCommands();
    void theyAnswerOnAnyThread();

private:
    ConsoleResult run(const char *line)
    {
        return m_console->run(QString::fromLatin1(line), *m_session);
    }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<hardware::Unit> m_unit;
    QScopedPointer<hardware::Gate> m_gate;
    QScopedPointer<Simulator> m_simulator;
    QScopedPointer<Console> m_console;
    QScopedPointer<hardware::JournalReader> m_reader;
    QScopedPointer<ConsoleSession> m_session;
};

void TestUsbCommands::init()
{
    m_folder.reset(new QTemporaryDir);
    m_unit.reset(new hardware::Unit(m_folder->path()));
    QString error;
    QVERIFY2(m_unit->open(&error), qPrintable(error));
    m_gate.reset(new hardware::Gate(*m_unit));
    m_simulator.reset(new Simulator(*m_unit, QString()));
    m_console.reset(new Console(m_simulator->graphicalThread()));
    addAllCommands(*m_console, *m_simulator);
    m_reader.reset(new hardware::JournalReader(m_unit->journal()));
    m_session.reset(new ConsoleSession(*m_reader));
}

void TestUsbCommands::cleanup()
{
    m_session.reset();
    m_reader.reset();
    m_console.reset();
    m_simulator.reset();
    m_gate.reset();
    m_unit.reset();
}

void TestUsbCommands::memoryListsTheRegisters()
{
    const ConsoleResult result = run("memory");
    QVERIFY(result.isOk());
    QCOMPARE(result.lines.size(), 11);
    QCOMPARE(result.lines.at(0), QStringLiteral("9C00018C usbRole 00070007"));
    QCOMPARE(result.lines.at(1), QStringLiteral("9C000190 phySwing 7F7F4040"));
}

void TestUsbCommands::memorySaysAndChangesAWord()
{
    QCOMPARE(run("memory 9c000190").lines,
             QStringList(QStringLiteral("9C000190 phySwing 7F7F4040")));
    QVERIFY(run("memory 9C000190 abCD").isOk());
    QCOMPARE(m_unit->memory().read(0x9C000190), 0xABCDu);
    QCOMPARE(run("memory 9C000194").lines, QStringList(QStringLiteral("9C000194 - 00000000")));
}

void TestUsbCommands::memoryTakesARegistersName()
{
    QVERIFY(run("memory phyDisconnect1 FFFFFFFF").isOk());
    QCOMPARE(m_unit->memory().read(0x9C004B1C), 0xFFFFFFFFu);
    QCOMPARE(run("memory phyDisconnect1").lines,
             QStringList(QStringLiteral("9C004B1C phyDisconnect1 FFFFFFFF")));
}

void TestUsbCommands::memoryFillReachesEveryRegister()
{
    QVERIFY(run("memory-fill 12").isOk());
    const QStringList lines = run("memory").lines;
    for (const QString &line : lines) {
        QVERIFY2(line.endsWith(QLatin1String(" 00000012")), qPrintable(line));
    }
}

void TestUsbCommands::memoryFaultIsSetAndTakenBack()
{
    using hardware::MemoryDevice;
    QVERIFY(run("fault memory missing").isOk());
    QCOMPARE(m_unit->memoryDevice().fault(), MemoryDevice::Missing);
    QVERIFY(run("fault memory map-refused").isOk());
    QCOMPARE(m_unit->memoryDevice().fault(), MemoryDevice::MapRefused);
    QVERIFY(run("fault memory none").isOk());
    QCOMPARE(m_unit->memoryDevice().fault(), MemoryDevice::NoFault);
}

void TestUsbCommands::phyTellsThePortsState()
{
    QVERIFY(run("memory phySwing 7F7F7F5F").isOk());
    QVERIFY(run("memory testMode1 9").isOk());
    QCOMPARE(run("phy").lines,
             QStringList({QStringLiteral("role host"),
                          QStringLiteral("port 0: high speed, test mode 0 (none), swing +31, "
                                         "disconnect level 16"),
                          QStringLiteral("port 1: high speed, test mode 9 (test J, high speed), "
                                         "swing -31, disconnect level 16"),
                          QStringLiteral("logo test off")}));
}

void TestUsbCommands::ncmTellsTheTestAndItsFigures()
{
    QCOMPARE(run("ncm").lines, QStringList(QStringLiteral("no test has run")));
    QVERIFY(m_unit->ncmTest().start(hardware::NcmTest::UdpClient50));
    QTRY_VERIFY_WITH_TIMEOUT(m_unit->ncmTest().figures().bytesReceived > 0, 20000);
    QCOMPARE(run("ncm").lines.first(), QStringLiteral("udp client 50 runs"));
    m_unit->ncmTest().stop();
    const QStringList lines = run("ncm").lines;
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.first(), QStringLiteral("udp client 50 ended"));
    QVERIFY2(QRegularExpression(
                 QStringLiteral(R"(^\d+ bytes sent, \d+ received in \d+\.\d s, \d+\.\d Mbit/s, )"
                                R"(\d+ datagrams lost$)"))
                 .match(lines.last())
                 .hasMatch(),
             qPrintable(lines.last()));
}

void TestUsbCommands::ncmFaultIsSetAndTakenBack()
{
    QVERIFY(run("fault ncm refused").isOk());
    QVERIFY(!m_unit->ncmTest().start(hardware::NcmTest::TcpClient));
    QVERIFY(run("fault ncm none").isOk());
    QVERIFY(m_unit->ncmTest().start(hardware::NcmTest::TcpClient));
}

void TestUsbCommands::wrongCommands_data()
{
    QTest::addColumn<QString>("error");
    const auto row = [](const char *line, const char *error) {
        QTest::newRow(line) << QString::fromLatin1(error);
    };
    row("memory phySwig",
        "ADDRESS is a hexadecimal number from 0 to FFFFFFFF, not \"phySwig\", and no register has "
        "that name");
    row("memory 9C000191", "ADDRESS is a multiple of 4, not \"9C000191\"");
    row("memory 9C000190 g", "VALUE is a hexadecimal number from 0 to FFFFFFFF, not \"g\"");
    row("memory 9C000190 100000000",
        "VALUE is a hexadecimal number from 0 to FFFFFFFF, not \"100000000\"");
    row("memory-fill", "usage: memory-fill VALUE");
    row("memory-fill x", "VALUE is a hexadecimal number from 0 to FFFFFFFF, not \"x\"");
    row("phy 1", "usage: phy");
}

void TestUsbCommands::wrongCommands()
{
    QTEST(run(QTest::currentDataTag()).error, "error");
    QVERIFY(m_unit->journal().lines(QStringLiteral("memory set")).isEmpty());
}

void TestUsbCommands::theyAnswerOnAnyThread()
{
    // The graphical thread waits here, as while a page blocks it.
    ConsoleResult memory;
    ConsoleResult ncm;
    QScopedPointer<QThread> thread(QThread::create([&] {
        memory = run("memory phySwing");
        ncm = run("ncm");
    }));
    thread->start();
    QVERIFY(thread->wait(20000));
    QCOMPARE(memory.lines.size(), 1);
    QCOMPARE(ncm.lines.size(), 1);
}

FACTORY_TEST_MAIN(TestUsbCommands)
#include "tst_usbcommands.moc"
