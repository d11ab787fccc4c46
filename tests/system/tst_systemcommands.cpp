#include "simulator/commands/allcommands.h"

#include "simulator/console/console.h"
#include "simulator/console/consolesession.h"
#include "simulator/simulator.h"

#include "gate/gate.h"
#include "hardware/unit/journalreader.h"
#include "hardware/unit/unit.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

using simulator::ConsoleResult;

class TestSystemCommands : public QObject
{
    Q_OBJECT

private slots:
    void dabTellsAndTakesAStatus();
    void dabFaultReachesTheTuner_data();
    void dabFaultReachesTheTuner();
    void versionsAreSaidAndChanged();
    void wrongCommandSaysWhatIsAllowed_data();
    void wrongCommandSaysWhatIsAllowed();
};

namespace
{

/// A console with the commands, on a simulator that is not started.
struct Bench
{
    Bench()
        : unit(folder.filePath(QStringLiteral("unit")))
        , isOpen(unit.open(&error))
        , gate(unit)
        , simulator(unit, QString())
        , console(simulator.graphicalThread())
        , session(reader)
    {
        simulator::addSystemCommands(console, simulator);
        simulator::addFaultCommands(console, simulator);
    }

    ConsoleResult run(const char *line) { return console.run(QString::fromLatin1(line), session); }

    QTemporaryDir folder;
    QString error;
    hardware::Unit unit;
    bool isOpen;
    hardware::Gate gate;
    simulator::Simulator simulator;
    simulator::Console console;
    hardware::JournalReader reader{unit.journal()};
    simulator::ConsoleSession session;
};

} // namespace

void TestSystemCommands::dabTellsAndTakesAStatus()
{
    Bench bench;
    QCOMPARE(bench.run("dab").lines, QStringList("status 0, progress 0 %"));
    QVERIFY(bench.run("dab 8").isOk());
    QCOMPARE(bench.run("dab").lines, QStringList("status 8, progress 0 %"));
    QVERIFY(bench.run("dab 99 wrong").isOk());
    QCOMPARE(bench.run("dab").lines, QStringList("status 99, progress 0 %"));
    QVERIFY(bench.unit.journal().waitFor(hardware::JournalPattern(QStringLiteral("dab tells 8")), 0,
                                         20000)
            >= 0);
}

void TestSystemCommands::dabFaultReachesTheTuner_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("end");
    QTest::newRow("fail") << QByteArray("fault dab fail 0")
                          << "dab update failed: write error at 0 %";
    QTest::newRow("none") << QByteArray("fault dab none") << "dab update ok, 10 bytes";
}

void TestSystemCommands::dabFaultReachesTheTuner()
{
    QFETCH(QByteArray, command);
    QFETCH(QString, end);
    Bench bench;
    QFile firmware(bench.unit.folder().path(QStringLiteral("/dab_firmware.bin")));
    QVERIFY(firmware.open(QIODevice::WriteOnly));
    firmware.write(QByteArray(10, 'f'));
    firmware.close();
    QVERIFY(bench.run(command.constData()).isOk());
    QVERIFY(bench.unit.dabTuner().startUpdate(QByteArray()));
    QVERIFY(bench.unit.journal().waitFor(hardware::JournalPattern(end), 0, 60000) >= 0);
}

void TestSystemCommands::versionsAreSaidAndChanged()
{
    Bench bench;
    QCOMPARE(bench.run("version").lines,
             QStringList(
                 {"gps GNSS 1.04.2", "bluetooth BT 5.0.17", "alsProduct 171", "dabSdk SDK 3.2.1"}));
    QVERIFY(bench.run("version gps \"G 2\"").isOk());
    QCOMPARE(bench.run("version gps").lines, QStringList("G 2"));
    QCOMPARE(bench.unit.versions().gps(), QStringLiteral("G 2"));
}

void TestSystemCommands::wrongCommandSaysWhatIsAllowed_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("error");
    QTest::newRow("version") << QByteArray("version wifi")
                             << "there is no version of \"wifi\"; there are: gps, bluetooth, "
                                "alsProduct, dabSdk";
    QTest::newRow("DAB code") << QByteArray("dab 99")
                              << "CODE is 0, 7, 8 or 9, not \"99\"; \"wrong\" behind it allows "
                                 "others";
    QTest::newRow("DAB word") << QByteArray("dab 8 right")
                              << "only \"wrong\" may follow here, not \"right\"";
    QTest::newRow("product") << QByteArray("version alsProduct abc")
                             << "alsProduct \"abc\" is not allowed; allowed is a whole number from "
                                "-2147483648 to 2147483647";
}

void TestSystemCommands::wrongCommandSaysWhatIsAllowed()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, error);
    Bench bench;
    QCOMPARE(bench.run(line.constData()).error, error);
    for (const char *outOfRange : {"dab 256", "dab -1", "dab x", "dab 256 wrong"}) {
        QVERIFY2(!bench.run(outOfRange).isOk(), outOfRange);
    }
}

FACTORY_TEST_MAIN(TestSystemCommands)
#include "tst_systemcommands.moc"
