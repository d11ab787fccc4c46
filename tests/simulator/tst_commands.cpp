#include "simulator/commands/allcommands.h"

#include "testsimulator.h"

#include "support/testmain.h"

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
    void waitLetsTheUnitGoOn();
    void speedIsSaidAndSet();
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
    QTest::newRow("speed: stopped") << "speed 0"
                                    << "FACTOR is a number from 0.01 to 1000, not \"0\"";
    QTest::newRow("cd: no folder") << "cd /etc/passwd/nowhere"
                                   << "there is no folder \"/etc/passwd/nowhere\"";
    QTest::newRow("receiver: impossible") << "fault receiver silence prompt 3"
                                          << "the stage \"prompt\" has no blocks";
    QTest::newRow("quit: argument") << "quit now"
                                    << "usage: quit";
    QTest::newRow("wire: neither") << "wire maybe"
                                   << "\"maybe\" is neither on nor off";
    QTest::newRow("factory-reset: argument") << "factory-reset now"
                                             << "usage: factory-reset";
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

void TestCommands::speedIsSaidAndSet()
{
    TestSimulator unit;
    QCOMPARE(unit.run("speed").lines, QStringList("1"));
    QCOMPARE(unit.errorOf("speed 1000"), QString());
    QCOMPARE(unit.run("speed").lines, QStringList("1000"));
    QCOMPARE(unit.errorOf("wait 60000"), QString());
    const auto lines = unit.simulator().unit().journal().entries("unit speed");
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.first().causeText, QString("console speed 1000"));
    QVERIFY(lines.first().seconds < 60);
    QVERIFY(unit.simulator().unit().clock().elapsed() >= 60 * qint64(1000000000));
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
