// The console's commands for the DAB tuner and the versions.

#include "simulator/testsimulator.h"

#include "support/testmain.h"

#include <QtTest>

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

const double fast = 10; // an update of ten seconds lasts one

bool heard(TestSimulator &test, const QString &line)
{
    return test.journal().waitFor(hardware::JournalPattern(line), 0, 20000) >= 0;
}

} // namespace

void TestSystemCommands::dabTellsAndTakesAStatus()
{
    TestSimulator test;
    QCOMPARE(test.run("dab").lines, QStringList("status 0, progress 0 %"));
    QVERIFY(test.run("dab 8").isOk());
    QCOMPARE(test.run("dab").lines, QStringList("status 8, progress 0 %"));
    QVERIFY(test.run("dab 99 wrong").isOk());
    QCOMPARE(test.run("dab").lines, QStringList("status 99, progress 0 %"));
    QVERIFY(heard(test, QStringLiteral("dab tells 8")));
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
    TestSimulator test(fast);
    QFile firmware(test.path(QStringLiteral("/dab_firmware.bin")));
    QVERIFY(firmware.open(QIODevice::WriteOnly));
    firmware.write(QByteArray(10, 'f'));
    firmware.close();
    QVERIFY(test.run(command).isOk());
    QVERIFY(test.simulator().unit().dabTuner().startUpdate(QByteArray()));
    QVERIFY(heard(test, end));
}

void TestSystemCommands::versionsAreSaidAndChanged()
{
    TestSimulator test;
    QCOMPARE(test.run("version").lines,
             QStringList(
                 {"gps GNSS 1.04.2", "bluetooth BT 5.0.17", "alsProduct 171", "dabSdk SDK 3.2.1"}));
    QVERIFY(test.run("version gps \"G 2\"").isOk());
    QCOMPARE(test.run("version gps").lines, QStringList("G 2"));
    QCOMPARE(test.simulator().unit().versions().gps(), QStringLiteral("G 2"));
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
    TestSimulator test;
    QCOMPARE(test.run(line).error, error);
    for (const char *outOfRange : {"dab 256", "dab -1", "dab x", "dab 256 wrong"}) {
        QVERIFY2(!test.run(outOfRange).isOk(), outOfRange);
    }
}

FACTORY_TEST_MAIN(TestSystemCommands)
#include "tst_systemcommands.moc"
