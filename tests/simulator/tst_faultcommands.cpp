#include "simulator/commands/allcommands.h"

#include "testsimulator.h"

#include "support/testmain.h"
#include "unitlink/calls.h"

#include <QtTest>

class TestFaultCommands : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
    void failsAreListedAndDropped();
    void everyCallThatIsListedIsTaken();
};

void TestFaultCommands::refuses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    const auto unknown =
        QStringLiteral("there is no call \"%1\" that can fail; \"fail calls\" lists them");
    QTest::newRow("no call") << "fail fire" << unknown.arg(QStringLiteral("fire"));
    QTest::newRow("not of a library")
        << "fail DisplayControl::explode" << unknown.arg(QStringLiteral("DisplayControl::explode"));
    QTest::newRow("with an argument")
        << "fail \"ThreadPool::addTask 1\"" << unknown.arg(QStringLiteral("ThreadPool::addTask 1"));
    QTest::newRow("no path") << "fail open" << unknown.arg(QStringLiteral("open"));
    QTest::newRow("relative path")
        << "fail \"open media\"" << unknown.arg(QStringLiteral("open media"));
    QTest::newRow("no command") << "fail system" << unknown.arg(QStringLiteral("system"));
    QTest::newRow("number") << "fail \"system sync\" 0"
                            << "N is a whole number from 1 to 2147483647, not \"0\"";
}

void TestFaultCommands::refuses()
{
    QFETCH(QString, line);
    QFETCH(QString, error);
    TestSimulator unit;
    QCOMPARE(unit.errorOf(line), error);
    QCOMPARE(unit.run(QStringLiteral("fail")).lines, QStringList());
}

void TestFaultCommands::failsAreListedAndDropped()
{
    TestSimulator unit;
    unit.run(QStringLiteral("fail \"system sync\" 3"));
    unit.run(QStringLiteral("fail McuMsgModule::sendMsgToMcu"));
    QCOMPARE(unit.run(QStringLiteral("fail")).lines,
             QStringList({QStringLiteral("3 system sync"),
                          QStringLiteral("1 McuMsgModule::sendMsgToMcu")}));
    unit.run(QStringLiteral("fail none"));
    QCOMPARE(unit.run(QStringLiteral("fail")).lines, QStringList());
}

void TestFaultCommands::everyCallThatIsListedIsTaken()
{
    TestSimulator unit;
    QStringList calls = unit.run(QStringLiteral("fail calls")).lines;
    QVERIFY(calls.size() > unitlink::callsThatCanFail().size());
    calls.replaceInStrings(QStringLiteral(" PATH"), QStringLiteral(" /media"));
    for (const QString &call : qAsConst(calls)) {
        unit.run(QStringLiteral("fail \"%1\"").arg(call));
    }
    QCOMPARE(unit.run(QStringLiteral("fail")).lines.size(), calls.size());
}

FACTORY_TEST_MAIN(TestFaultCommands)
#include "tst_faultcommands.moc"
