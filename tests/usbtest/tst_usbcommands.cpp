// The console's commands for the hardware behind the USB pages.

#include "simulator/testsimulator.h"

#include "support/testmain.h"

#include <QRegularExpression>
#include <QThread>
#include <QtTest>

using simulator::ConsoleResult;

class TestUsbCommands : public QObject
{
    Q_OBJECT

private slots:
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
};

namespace
{

hardware::PhysicalMemory &memoryOf(TestSimulator &test)
{
    return test.simulator().unit().memory();
}

hardware::NcmTest &ncmTestOf(TestSimulator &test)
{
    return test.simulator().unit().ncmTest();
}

} // namespace

void TestUsbCommands::memoryListsTheRegisters()
{
    TestSimulator test;
    const ConsoleResult result = test.run("memory");
    QVERIFY(result.isOk());
    QCOMPARE(result.lines.size(), 11);
    QCOMPARE(result.lines.at(0), QStringLiteral("9C00018C usbRole 00070007"));
    QCOMPARE(result.lines.at(1), QStringLiteral("9C000190 phySwing 7F7F4040"));
}

void TestUsbCommands::memorySaysAndChangesAWord()
{
    TestSimulator test;
    QCOMPARE(test.run("memory 9c000190").lines,
             QStringList(QStringLiteral("9C000190 phySwing 7F7F4040")));
    QVERIFY(test.run("memory 9C000190 abCD").isOk());
    QCOMPARE(memoryOf(test).read(0x9C000190), 0xABCDu);
    QCOMPARE(test.run("memory 9C000194").lines, QStringList(QStringLiteral("9C000194 - 00000000")));
}

void TestUsbCommands::memoryTakesARegistersName()
{
    TestSimulator test;
    QVERIFY(test.run("memory phyDisconnect1 FFFFFFFF").isOk());
    QCOMPARE(memoryOf(test).read(0x9C004B1C), 0xFFFFFFFFu);
    QCOMPARE(test.run("memory phyDisconnect1").lines,
             QStringList(QStringLiteral("9C004B1C phyDisconnect1 FFFFFFFF")));
}

void TestUsbCommands::memoryFillReachesEveryRegister()
{
    TestSimulator test;
    QVERIFY(test.run("memory-fill 12").isOk());
    const QStringList lines = test.run("memory").lines;
    for (const QString &line : lines) {
        QVERIFY2(line.endsWith(QLatin1String(" 00000012")), qPrintable(line));
    }
}

void TestUsbCommands::memoryFaultIsSetAndTakenBack()
{
    using hardware::MemoryDevice;
    TestSimulator test;
    QVERIFY(test.run("fault memory missing").isOk());
    QCOMPARE(test.simulator().unit().memoryDevice().fault(), MemoryDevice::Missing);
    QVERIFY(test.run("fault memory map-refused").isOk());
    QCOMPARE(test.simulator().unit().memoryDevice().fault(), MemoryDevice::MapRefused);
    QVERIFY(test.run("fault memory none").isOk());
    QCOMPARE(test.simulator().unit().memoryDevice().fault(), MemoryDevice::NoFault);
}

void TestUsbCommands::phyTellsThePortsState()
{
    TestSimulator test;
    QVERIFY(test.run("memory phySwing 7F7F7F5F").isOk());
    QVERIFY(test.run("memory testMode1 9").isOk());
    QCOMPARE(test.run("phy").lines,
             QStringList({QStringLiteral("role host"),
                          QStringLiteral("port 0: high speed, test mode 0 (none), swing +31, "
                                         "disconnect level 16"),
                          QStringLiteral("port 1: high speed, test mode 9 (test J, high speed), "
                                         "swing -31, disconnect level 16"),
                          QStringLiteral("logo test off")}));
}

void TestUsbCommands::ncmTellsTheTestAndItsFigures()
{
    TestSimulator test;
    QCOMPARE(test.run("ncm").lines, QStringList(QStringLiteral("no test has run")));
    QVERIFY(ncmTestOf(test).start(hardware::NcmTest::UdpClient50));
    QTRY_VERIFY_WITH_TIMEOUT(ncmTestOf(test).figures().bytesReceived > 0, 20000);
    QCOMPARE(test.run("ncm").lines.first(), QStringLiteral("udp client 50 runs"));
    ncmTestOf(test).stop();
    const QStringList lines = test.run("ncm").lines;
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
    TestSimulator test;
    QVERIFY(test.run("fault ncm refused").isOk());
    QVERIFY(!ncmTestOf(test).start(hardware::NcmTest::TcpClient));
    QVERIFY(test.run("fault ncm none").isOk());
    QVERIFY(ncmTestOf(test).start(hardware::NcmTest::TcpClient));
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
    TestSimulator test;
    QTEST(test.run(QTest::currentDataTag()).error, "error");
    QVERIFY(test.journal().lines(QStringLiteral("memory set")).isEmpty());
}

void TestUsbCommands::theyAnswerOnAnyThread()
{
    TestSimulator test;
    // The graphical thread waits here, as while a page blocks it.
    ConsoleResult memory;
    ConsoleResult ncm;
    QScopedPointer<QThread> thread(QThread::create([&] {
        memory = test.run("memory phySwing");
        ncm = test.run("ncm");
    }));
    thread->start();
    QVERIFY(thread->wait(20000));
    QCOMPARE(memory.lines.size(), 1);
    QCOMPARE(ncm.lines.size(), 1);
}

FACTORY_TEST_MAIN(TestUsbCommands)
#include "tst_usbcommands.moc"
