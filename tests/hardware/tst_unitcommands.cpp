// The unit's own programs, as its shell finds them.

#include "support/openunit.h"
#include "support/testmain.h"

#include <QtTest>

class tst_UnitCommands : public QObject
{
    Q_OBJECT

private slots:
    void logsetKeepsTheValue();
    void logsetRefuses_data();
    void logsetRefuses();
    void killallEndsWhatRunsInTheUnit();
    void killallRefuses_data();
    void killallRefuses();
    void printkIsTheUnits();
};

namespace
{

int run(OpenUnit &unit, const QByteArray &command)
{
    const int status = unit->shell().run(command + " 2>/dev/null");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

void tst_UnitCommands::logsetKeepsTheValue()
{
    OpenUnit unit;
    QCOMPARE(run(unit, "logset ALOG_OUTPUT n"), 0);
    QCOMPARE(readFile(unit.path(QStringLiteral("/logset/ALOG_OUTPUT"))), QByteArray("n\n"));
    QCOMPARE(run(unit, "logset ALOG_OUTPUT y"), 0);
    QCOMPARE(readFile(unit.path(QStringLiteral("/logset/ALOG_OUTPUT"))), QByteArray("y\n"));
}

void tst_UnitCommands::logsetRefuses_data()
{
    QTest::addColumn<QByteArray>("command");
    for (const char *command : {"logset", "logset ALOG_OUTPUT", "logset A b c", "logset a/b n",
                                "logset .. n", "logset '' n"}) {
        QTest::newRow(command) << QByteArray(command);
    }
}

void tst_UnitCommands::logsetRefuses()
{
    QFETCH(QByteArray, command);
    OpenUnit unit;
    QCOMPARE(run(unit, command), 2);
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/logset"))));
}

void tst_UnitCommands::killallEndsWhatRunsInTheUnit()
{
    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/run/as_server")), "");
    writeFile(unit.path(QStringLiteral("/run/other")), "");
    QCOMPARE(run(unit, "killall as_server"), 0);
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/run/as_server"))));
    QVERIFY(QFileInfo::exists(unit.path(QStringLiteral("/run/other"))));
    QCOMPARE(run(unit, "killall as_server"), 1);
    QCOMPARE(run(unit, "killall as_server other"), 1);
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/run/other"))));
}

void tst_UnitCommands::killallRefuses_data()
{
    QTest::addColumn<QByteArray>("command");
    for (const char *command :
         {"killall", "killall -9", "killall .", "killall ..", "killall a/b", "killall ''"}) {
        QTest::newRow(command) << QByteArray(command);
    }
}

void tst_UnitCommands::killallRefuses()
{
    QFETCH(QByteArray, command);
    OpenUnit unit;
    QCOMPARE(run(unit, command), 2);
}

void tst_UnitCommands::printkIsTheUnits()
{
    OpenUnit unit;
    QCOMPARE(readFile(unit.path(QStringLiteral("/proc/sys/kernel/printk"))),
             QByteArray("7\t4\t1\t7\n"));
    QCOMPARE(run(unit, "echo 0 > /proc/sys/kernel/printk"), 0);
    QCOMPARE(readFile(unit.path(QStringLiteral("/proc/sys/kernel/printk"))), QByteArray("0\n"));
}

FACTORY_TEST_GUILESS_MAIN(tst_UnitCommands)
#include "tst_unitcommands.moc"
