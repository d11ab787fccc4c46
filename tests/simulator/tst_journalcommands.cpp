#include "simulator/commands/allcommands.h"

#include "testsimulator.h"

#include "support/testmain.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

using namespace simulator;

/// The console's commands that list the journal, and wait for its lines.
class TestJournalCommands : public QObject
{
    Q_OBJECT

private slots:
    void journalIsListed();
    void journalBeginsWhereWanted();
    void journalTellsCauses();
    void expectReadsOnBehindTheLine();
    void expectFailsWithTheJournalSince();
    void expectWaitsInTheUnitsTime();
    void absentLooksAheadOnly();
    void markSkips();
};

void TestJournalCommands::journalIsListed()
{
    TestSimulator unit;
    unit.journal().write("probe", "one");
    unit.journal().write("probe", "two");
    const QStringList probes = unit.run("journal probe").lines;
    static const QRegularExpression timed("^\\d+\\.\\d{3} probe one\n\\d+\\.\\d{3} probe two$");
    QVERIFY2(timed.match(probes.join('\n')).hasMatch(), qPrintable(probes.join('\n')));
    QCOMPARE(unit.run("journal '/^probe t/'").lines, QStringList(probes.value(1)));
    QVERIFY(unit.run("journal").lines.size() > 2);
}

void TestJournalCommands::journalBeginsWhereWanted()
{
    TestSimulator unit;
    QCOMPARE(unit.errorOf("als 1"), QString());
    const QString end = QString::number(unit.simulator().unit().journal().end());
    QCOMPARE(unit.errorOf("als 2"), QString());
    const QStringList lines = unit.run("journal --from=" + end + " als").lines;
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines.first().endsWith(" als reading 2"), qPrintable(lines.first()));
    QCOMPARE(unit.run("journal --from=0 als").lines.size(), 2);
    QCOMPARE(unit.errorOf("journal --from=now"),
             QString("LINE is a whole number from 0 to 2147483647, not \"now\""));
}

void TestJournalCommands::journalTellsCauses()
{
    TestSimulator unit;
    unit.journal().write("probe", "unknown");
    QCOMPARE(unit.errorOf("als 300"), QString());
    QCOMPARE(
        unit.errorOf("journal --causes probe els"),
        QString("usage: journal [--all] [--follow] [--from=LINE] [--causes or --json] [PATTERN]"));
    static const QRegularExpression time("^\\d+\\.\\d{3} ");
    const auto answer = [&unit](const QString &line) {
        return unit.run(line).lines.replaceInStrings(time, QString());
    };
    QCOMPARE(answer("journal --causes probe"), QStringList("#? probe unknown"));
    const QStringList reading = answer("journal --all --causes /300/");
    QCOMPARE(reading.size(), 2);
    const QString number = reading.first().section(' ', 0, 0);
    QCOMPARE(reading, QStringList({number + " console als 300", number + " als reading 300"}));

    const QStringList objects = unit.run("journal --json /300/").lines;
    QCOMPARE(objects.size(), 1);
    QJsonObject object = QJsonDocument::fromJson(objects.first().toUtf8()).object();
    QVERIFY(object.take("line").toDouble(-1) >= 0);
    QVERIFY(object.take("seconds").toDouble(-1) >= 0);
    const QJsonObject cause = {{"number", number.midRef(1).toInt()}, {"text", "console als 300"}};
    QCOMPARE(object, QJsonObject({{"source", "als"}, {"text", "reading 300"}, {"cause", cause}}));
    QVERIFY(unit.run("journal --json probe").lines.value(0).contains("\"cause\":null"));
}

void TestJournalCommands::expectReadsOnBehindTheLine()
{
    TestSimulator unit;
    unit.journal().write("probe", "one");
    unit.journal().write("probe", "two");
    unit.journal().write("probe", "one");
    QCOMPARE(unit.errorOf("expect \"probe one\""), QString());
    QCOMPARE(unit.errorOf("expect \"probe one\""), QString());
    QVERIFY(!unit.errorOf("expect \"probe two\" 0").isEmpty());
    QTimer::singleShot(20, &unit.simulator(), [&unit] { unit.journal().write("probe", "two"); });
    QCOMPARE(unit.errorOf("expect \"/^probe t.o$/\""), QString());
}

void TestJournalCommands::expectFailsWithTheJournalSince()
{
    TestSimulator unit;
    unit.run("mark");
    unit.journal().write("probe", "before");
    unit.journal().write("probe", "found");
    unit.journal().write("probe", "after");
    QCOMPARE(unit.errorOf("expect \"probe found\""), QString());
    const ConsoleResult result = unit.run("expect \"probe missing\" 10");
    QCOMPARE(result.error,
             QString("no line matched \"probe missing\" within 10 ms; shown are the journal's last "
                     "lines since the last match"));
    QCOMPARE(result.lines.filter("probe"), QStringList{"probe after"});

    QStringList last;
    for (int line = 1; line <= 30; ++line) {
        unit.journal().write("probe", QString::number(line));
        last.append(QStringLiteral("probe %1").arg(line));
    }
    QCOMPARE(unit.run("expect \"probe missing\" 0").lines, last.mid(10));

    unit.journal().write("gate", "open one");
    QCOMPARE(unit.run("expect \"probe missing\" 0").lines.last(), QString("probe 30"));
    QCOMPARE(unit.run("expect \"gate missing\" 0").lines,
             last.mid(11) + QStringList{"gate open one"});
}

void TestJournalCommands::expectWaitsInTheUnitsTime()
{
    TestSimulator unit(100.0);
    QElapsedTimer time;
    time.start();
    // Half a minute of the unit is 0.3 s here.
    QVERIFY(!unit.errorOf("expect never 30000").isEmpty());
    QVERIFY2(time.elapsed() >= 300, qPrintable(QString::number(time.elapsed())));
    QVERIFY2(time.elapsed() < 15000, qPrintable(QString::number(time.elapsed())));
}

void TestJournalCommands::absentLooksAheadOnly()
{
    TestSimulator unit;
    unit.journal().write("probe", "one");
    unit.journal().write("probe", "two");
    QCOMPARE(unit.errorOf("expect \"probe one\""), QString());
    QCOMPARE(unit.errorOf("absent \"probe one\""), QString());
    const ConsoleResult result = unit.run("absent \"probe two\"");
    QCOMPARE(result.error, QString("the journal has \"probe two\""));
    QCOMPARE(result.lines, QStringList{"probe two"});
    // It does not move on.
    QCOMPARE(unit.errorOf("expect \"probe two\""), QString());
}

void TestJournalCommands::markSkips()
{
    TestSimulator unit;
    unit.journal().write("probe", "one");
    QCOMPARE(unit.errorOf("mark"), QString());
    QCOMPARE(unit.errorOf("absent probe"), QString());
    QVERIFY(!unit.errorOf("expect probe 0").isEmpty());
}

FACTORY_TEST_MAIN(TestJournalCommands)
#include "tst_journalcommands.moc"
