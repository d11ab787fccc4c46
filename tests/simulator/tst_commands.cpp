#include "simulator/commands/allcommands.h"

#include "testsimulator.h"

#include "support/testmain.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

using namespace simulator;

/// Every command of the console, and what each refuses.
class TestCommands : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
    void refusesOnTheScreen_data();
    void refusesOnTheScreen();
    void everyCommandIsExplained();

    void tapHoldLiftAndDrag();
    void holdMovesAFingerThatIsDown();
    void liftSomewhereElse();
    void nowaitAnswersBeforeTheTap();
    void settingsAreReadAndWritten();
    void foldersArePlugged();
    void journalIsListed();
    void journalTellsCauses();
    void expectReadsOnBehindTheLine();
    void expectFailsWithTheJournalSince();
    void expectWaitsInTheUnitsTime();
    void absentLooksAheadOnly();
    void markSkips();
    void waitLetsTheUnitGoOn();
    void receiverListsWhatGoesWrong();
};

void TestCommands::refuses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");

    const QString xRange = "X is a whole number from 0 to 799, not \"%1\"";
    const QString yRange = "Y is a whole number from 0 to 479, not \"%1\"";
    QTest::newRow("tap: no number") << "tap here 1" << xRange.arg("here");
    QTest::newRow("tap: fraction") << "tap 1.5 1" << xRange.arg("1.5");
    QTest::newRow("tap: left of the screen") << "tap -1 1" << xRange.arg("-1");
    QTest::newRow("tap: right of the screen") << "tap 800 1" << xRange.arg("800");
    QTest::newRow("tap: below the screen") << "tap 1 480" << yRange.arg("480");
    QTest::newRow("tap: no number at all") << "tap 1 ''" << yRange.arg("");
    QTest::newRow("tap: Y missing") << "tap 1"
                                    << "usage: tap X Y [nowait]";
    QTest::newRow("tap: other word") << "tap 1 1 twice"
                                     << "only \"nowait\" may follow here, not \"twice\"";
    QTest::newRow("press: id missing") << "press"
                                       << "usage: press ID [nowait]";
    QTest::newRow("press: no such button") << "press idNone"
                                           << "there is no button \"idNone\" on the screen";
    QTest::newRow("hold: outside") << "hold 1 1000" << yRange.arg("1000");
    QTest::newRow("lift: not down") << "lift"
                                    << "the finger is not down";
    QTest::newRow("lift: half a place") << "lift 1" << yRange.arg("");
    QTest::newRow("lift: outside") << "lift 900 1" << xRange.arg("900");
    QTest::newRow("drag: incomplete") << "drag 1 2 3"
                                      << "usage: drag X1 Y1 X2 Y2 [STEPS]";
    QTest::newRow("drag: start outside") << "drag 800 1 1 1" << xRange.arg("800");
    QTest::newRow("drag: end outside") << "drag 1 1 1 481" << yRange.arg("481");
    QTest::newRow("drag: no steps") << "drag 1 1 2 2 0"
                                    << "STEPS is a whole number from 1 to 1000, not \"0\"";
    QTest::newRow("key: unknown") << "key POWER"
                                  << "there is no key \"POWER\", only HOME and FACTORY";
    QTest::newRow("key: case") << "key home"
                               << "there is no key \"home\", only HOME and FACTORY";
    QTest::newRow("setting: unknown") << "setting no/key"
                                      << "there is no setting \"no/key\"";
    QTest::newRow("journal: bad expression")
        << "journal /(/"
        << "/(/ is no regular expression: missing closing parenthesis at character 1.";
    QTest::newRow("expect: bad expression")
        << "expect /(/"
        << "/(/ is no regular expression: missing closing parenthesis at character 1.";
    QTest::newRow("absent: bad expression")
        << "absent /(/"
        << "/(/ is no regular expression: missing closing parenthesis at character 1.";
    QTest::newRow("see: no time") << "see x soon"
                                  << "MS is a whole number from 0 to 2147483647, not \"soon\"";
    QTest::newRow("see: bad expression")
        << "see /(/"
        << "/(/ is no regular expression: missing closing parenthesis at character 1.";
    QTest::newRow("expect: no time") << "expect x soon"
                                     << "MS is a whole number from 0 to 2147483647, not \"soon\"";
    QTest::newRow("expect: negative time")
        << "expect x -1"
        << "MS is a whole number from 0 to 2147483647, not \"-1\"";
    QTest::newRow("wait: no time") << "wait long"
                                   << "MS is a whole number from 0 to 2147483647, not \"long\"";
    QTest::newRow("cd: no folder") << "cd /etc/passwd/nowhere"
                                   << "there is no folder \"/etc/passwd/nowhere\"";
    QTest::newRow("receiver: impossible") << "fault receiver silence prompt 3"
                                          << "the stage \"prompt\" has no blocks";
    QTest::newRow("quit: argument") << "quit now"
                                    << "usage: quit";
    QTest::newRow("reboot: argument") << "reboot now"
                                      << "usage: reboot";
    QTest::newRow("unknown") << "jump"
                             << "unknown command \"jump\"; \"help\" lists them";
}

void TestCommands::refuses()
{
    QFETCH(QString, line);
    TestSimulator unit;
    QTEST(unit.errorOf(line), "error");
}

void TestCommands::refusesOnTheScreen_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::newRow("see") << "see nothing"
                         << "the screen does not show \"nothing\"";
    QTest::newRow("unseen") << "unseen \"test activity\""
                            << "the screen shows \"test activity\"";
    QTest::newRow("visible") << "visible nothing"
                             << "the button \"nothing\" is not to be seen";
    QTest::newRow("hidden") << "hidden count"
                            << "the button \"count\" is to be seen";
    QTest::newRow("pull: empty slot") << "pull usb0"
                                      << "usb0";
    QTest::newRow("pull: unknown slot") << "pull usb9"
                                        << "usb9";
    QTest::newRow("plug: unknown slot") << "plug usb9"
                                        << "usb9";
    QTest::newRow("plug: missing folder") << "plug usb0 /etc/passwd/nowhere"
                                          << "/etc/passwd/nowhere";
}

void TestCommands::refusesOnTheScreen()
{
    QFETCH(QString, line);
    QFETCH(QString, error);
    TestSimulator unit(20.0);
    unit.openActivity();
    const QString said = unit.errorOf(line);
    QVERIFY2(said.contains(error), qPrintable(said));
}

void TestCommands::everyCommandIsExplained()
{
    TestSimulator unit;
    QStringList explained = verbNames(verbTable());
    explained.sort();
    QCOMPARE(unit.console().names(), explained);
}

void TestCommands::tapHoldLiftAndDrag()
{
    TestSimulator unit;
    unit.openActivity();
    // The button "count" is at (20, 100), 200 x 50.
    QCOMPARE(unit.errorOf("tap 100 120"), QString());
    QCOMPARE(unit.errorOf("see \"presses: 1\""), QString());
    QCOMPARE(unit.errorOf("hold 100 120"), QString());
    QCOMPARE(unit.errorOf("tap 100 120"), QString("the finger is down; \"lift\" it first"));
    QCOMPARE(unit.errorOf("press count"), QString("the finger is down; \"lift\" it first"));
    QCOMPARE(unit.errorOf("drag 1 1 2 2"), QString("the finger is down; \"lift\" it first"));
    QCOMPARE(unit.errorOf("lift"), QString());
    QCOMPARE(unit.errorOf("see \"presses: 2\""), QString());
    QCOMPARE(unit.errorOf("drag 100 120 101 121 1"), QString());
    QCOMPARE(unit.errorOf("see \"presses: 3\""), QString());
    QCOMPARE(unit.errorOf("drag 100 120 600 400"), QString());
    QCOMPARE(unit.errorOf("see \"presses: 3\""), QString());
}

void TestCommands::holdMovesAFingerThatIsDown()
{
    TestSimulator unit;
    unit.openActivity();
    QCOMPARE(unit.errorOf("hold 100 120"), QString());
    QCOMPARE(unit.errorOf("hold 600 400"), QString());
    QCOMPARE(unit.errorOf("lift"), QString());
    QCOMPARE(unit.errorOf("see \"test activity\""), QString());
    QCOMPARE(unit.errorOf("hold 100 120"), QString());
    QCOMPARE(unit.errorOf("hold 600 400"), QString());
    QCOMPARE(unit.errorOf("hold 110 130"), QString());
    QCOMPARE(unit.errorOf("lift"), QString());
    QCOMPARE(unit.errorOf("see \"presses: 1\""), QString());
    // Beyond the glass, where a touch cannot begin.
    QCOMPARE(unit.errorOf("hold 100 120"), QString());
    QCOMPARE(unit.errorOf("hold 1799 -1000"), QString());
    QVERIFY(unit.errorOf("hold 1800 0").contains("from -1000 to 1799"));
    QCOMPARE(unit.errorOf("lift"), QString());
    QVERIFY(unit.errorOf("hold 800 0").contains("from 0 to 799"));
}

void TestCommands::liftSomewhereElse()
{
    TestSimulator unit;
    unit.openActivity();
    QCOMPARE(unit.errorOf("hold 100 120"), QString());
    QCOMPARE(unit.errorOf("lift 600 400"), QString());
    QCOMPARE(unit.errorOf("see \"test activity\""), QString());
}

void TestCommands::nowaitAnswersBeforeTheTap()
{
    TestSimulator unit;
    unit.openActivity();
    QCOMPARE(unit.errorOf("press idNone nowait"),
             QString("there is no button \"idNone\" on the screen"));
    QCOMPARE(unit.errorOf("press page nowait"), QString());
    QVERIFY(!unit.simulator().screenReader().texts().contains("page of its own"));
    QCOMPARE(unit.errorOf("see \"page of its own\""), QString());
}

void TestCommands::settingsAreReadAndWritten()
{
    TestSimulator unit;
    QCOMPARE(unit.errorOf("setting system/capture true"), QString());
    QCOMPARE(unit.run("setting system/capture").lines, QStringList{"true"});
    QCOMPARE(unit.errorOf("expect \"settings system/capture = true\""), QString());
    QCOMPARE(unit.errorOf("setting name 'two words'"), QString());
    QCOMPARE(unit.run("setting name").lines, QStringList{"two words"});
    QCOMPARE(unit.errorOf("setting name ''"), QString());
    QCOMPARE(unit.run("setting name").lines, QStringList{""});
}

void TestCommands::foldersArePlugged()
{
    TestSimulator unit;
    const QString folder = QFileInfo(unit.path("")).path();
    QVERIFY(QDir(folder).mkdir("stick"));
    // Relative to the session's folder.
    QCOMPARE(unit.errorOf("plug usb1 stick"), QString());
    QCOMPARE(unit.errorOf("expect \"storage plug usb1 /media/usb1\""), QString());
    QFile file(unit.path("/media/usb1/written"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(QFile::exists(folder + "/stick/written"));
    QCOMPARE(unit.errorOf("plug usb1 stick").isEmpty(), false);
    QCOMPARE(unit.errorOf("pull usb1"), QString());
    QVERIFY(!QFile::exists(unit.path("/media/usb1/written")));
    QVERIFY(QFile::exists(folder + "/stick/written"));
}

void TestCommands::journalIsListed()
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

void TestCommands::journalTellsCauses()
{
    TestSimulator unit;
    unit.journal().write("probe", "unknown");
    QCOMPARE(unit.errorOf("als 300"), QString());
    QCOMPARE(unit.errorOf("journal --causes probe els"),
             QString("usage: journal [--all] [--follow] [--causes or --json] [PATTERN]"));
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

void TestCommands::expectReadsOnBehindTheLine()
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

void TestCommands::expectFailsWithTheJournalSince()
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

void TestCommands::expectWaitsInTheUnitsTime()
{
    TestSimulator unit(100.0);
    QElapsedTimer time;
    time.start();
    // Half a minute of the unit is 0.3 s here.
    QVERIFY(!unit.errorOf("expect never 30000").isEmpty());
    QVERIFY2(time.elapsed() >= 300, qPrintable(QString::number(time.elapsed())));
    QVERIFY2(time.elapsed() < 15000, qPrintable(QString::number(time.elapsed())));
}

void TestCommands::absentLooksAheadOnly()
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

void TestCommands::markSkips()
{
    TestSimulator unit;
    unit.journal().write("probe", "one");
    QCOMPARE(unit.errorOf("mark"), QString());
    QCOMPARE(unit.errorOf("absent probe"), QString());
    QVERIFY(!unit.errorOf("expect probe 0").isEmpty());
}

void TestCommands::waitLetsTheUnitGoOn()
{
    TestSimulator unit(10.0);
    bool passed = false;
    QTimer::singleShot(10, &unit.simulator(), [&passed] { passed = true; });
    QElapsedTimer time;
    time.start();
    QCOMPARE(unit.errorOf("wait 1000"), QString());
    QVERIFY2(time.elapsed() >= 100, qPrintable(QString::number(time.elapsed())));
    QVERIFY(passed);
    QCOMPARE(unit.errorOf("wait 0"), QString());
}

void TestCommands::receiverListsWhatGoesWrong()
{
    TestSimulator unit;
    const QStringList well{"runs GNSS 1.04.2, 230400 baud"};
    QCOMPARE(unit.run("receiver").lines, well);
    QCOMPARE(unit.errorOf("fault receiver nak 3 5 firmware"), QString());
    QCOMPARE(unit.errorOf("fault receiver no-yc"), QString());
    QCOMPARE(unit.run("receiver").lines,
             well + QStringList({"fault nak 3 5 firmware", "fault no-yc"}));
    QCOMPARE(unit.errorOf("fault receiver none"), QString());
    QCOMPARE(unit.run("receiver").lines, well);
}

FACTORY_TEST_MAIN(TestCommands)
#include "tst_commands.moc"
