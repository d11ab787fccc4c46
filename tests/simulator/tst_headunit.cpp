#include "headunittest.h"

#include "support/testmain.h"

#include <QImage>
#include <QtTest>

#include <csignal>

class TestHeadunit : public QObject, private HeadunitTest
{
    Q_OBJECT

private slots:
    void init();

    void help();
    void version();
    void wrongUsage_data();
    void wrongUsage();
    void withoutADisplay();
    void unreachableDisplay();
    void unusablePlugins_data();
    void unusablePlugins();
    void unusableUnitFolders_data();
    void unusableUnitFolders();

    void startsWithoutAScriptAndStays();
    void testsItself();
    void selfTestThatIsEnded();

    void secondStartFindsTheStateOfTheFirst();
    void secondStartOnTheSameFolderIsRefused();
    void startsAgainAfterItWasKilled();
    void folderWithBlanks();

    void controlledFromOutside();
    void controlWhileTheScreenHangs();
    void saysWhereItIs_data();
    void saysWhereItIs();
    void controlsExitStatus();
    void controlExplainsWithoutAUnit();
    void controlFollowsTheJournal();
};

void TestHeadunit::init()
{
    makeFolder();
}

void TestHeadunit::help()
{
    const Outcome outcome = headunit({"--help"});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.error, QString());
    for (const char *said :
         {"--unit", "--plugin", "--script", "--headless", "--speed", "--scale", "--language",
          "--no-socket", "--version", "Exit status:", "/factorydebug/unit"}) {
        QVERIFY2(outcome.output.contains(said), said);
    }
    QCOMPARE(headunit({"-h"}).output, outcome.output);
}

void TestHeadunit::version()
{
    const Outcome outcome = headunit({"--version"});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.output, QString("headunit " VERSION "\n"));
    QCOMPARE(run(HEADUNIT_CTL, {"--version"}).output, QString("headunit-ctl " VERSION "\n"));
}

void TestHeadunit::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    const QString speed = "The speed is a number from 0.01 to 1000, not \"%1\".\n";
    QTest::newRow("unknown option") << QStringList{"--colour"} << "Unknown option 'colour'.\n";
    QTest::newRow("Qt's own option")
        << QStringList{"-platform", "offscreen"} << "Unknown options: p, l, a, t, f, o, r, m.\n";
    QTest::newRow("value missing") << QStringList{"--unit"} << "Missing value after '--unit'.\n";
    QTest::newRow("argument") << QStringList{"unit"} << "Unexpected argument \"unit\".\n";
    for (const char *option : {"unit", "script", "record", "from", "language"}) {
        QTest::addRow("self-test with %s", option)
            << QStringList{"--self-test", QStringLiteral("--%1").arg(option), "x"}
            << QStringLiteral("The self-test goes without --%1.\n").arg(option);
    }
    QTest::newRow("speed 0") << QStringList{"--speed", "0"} << speed.arg("0");
    QTest::newRow("speed negative") << QStringList{"--speed=-1"} << speed.arg("-1");
    QTest::newRow("speed no number") << QStringList{"--speed", "fast"} << speed.arg("fast");
    QTest::newRow("speed infinite") << QStringList{"--speed", "inf"} << speed.arg("inf");
    QTest::newRow("speed empty") << QStringList{"--speed", ""} << speed.arg("");
    QTest::newRow("speed too high") << QStringList{"--speed", "1001"} << speed.arg("1001");
    const QString scale = "The scale is a number from 0.5 to 4, not \"%1\".\n";
    QTest::newRow("scale too small") << QStringList{"--scale", "0.49"} << scale.arg("0.49");
    QTest::newRow("scale too large") << QStringList{"--scale", "4.1"} << scale.arg("4.1");
    QTest::newRow("scale no number") << QStringList{"--scale", "big"} << scale.arg("big");
    QTest::newRow("language") << QStringList{"--language", "fr"}
                              << "There is no language \"fr\"; there are de, en, pseudo.\n";
}

void TestHeadunit::wrongUsage()
{
    QFETCH(QStringList, arguments);
    const Outcome outcome = headunit(arguments);
    QCOMPARE(outcome.status, 2);
    QTEST(outcome.error, "error");
    QCOMPARE(outcome.output, QString());
}

void TestHeadunit::withoutADisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        environment.remove(name);
    }
    const Outcome outcome =
        run(HEADUNIT, {"--plugin", TEST_ACTIVITY, "--unit", m_unit}, environment);
    QCOMPARE(outcome.status, 5);
    QCOMPARE(outcome.error,
             QString("There is no display to show the unit on; --headless runs it without.\n"));
}

void TestHeadunit::unreachableDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("WAYLAND_DISPLAY");
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.insert("DISPLAY", "127.0.0.1:9999");
    const Outcome outcome =
        run(HEADUNIT, {"--plugin", TEST_ACTIVITY, "--unit", m_unit}, environment);
    QCOMPARE(outcome.status, 5);
    QCOMPARE(outcome.error,
             QString("There is no display to show the unit on (could not connect to display "
                     "127.0.0.1:9999); --headless runs it without.\n"));
}

void TestHeadunit::unusablePlugins_data()
{
    QTest::addColumn<QString>("plugin");
    QTest::addColumn<QString>("error");
    const QString unusable = "The file \"%1\" cannot be used as an activity: ";
    QTest::newRow("missing") << "/etc/passwd/nowhere/libactivity.so"
                             << "The plug-in \"%1\" does not exist.";
    QTest::newRow("broken") << NO_PLUGIN
                            << unusable + "it is no plug-in ('%1' is not an ELF object).";
    QTest::newRow("another IID") << OTHER_IID
                                 << unusable
            + "its interface is \"activity/0.2\", not \"activity/0.1\".";
}

void TestHeadunit::unusablePlugins()
{
    QFETCH(QString, plugin);
    QFETCH(QString, error);
    const Outcome outcome = headunit({"--headless", "--plugin", plugin, "--unit", m_unit});
    QCOMPARE(outcome.status, 3);
    QCOMPARE(outcome.error, error.arg(plugin) + '\n');
}

void TestHeadunit::unusableUnitFolders_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("a file") << NO_PLUGIN;
    QTest::newRow("below a file") << NO_PLUGIN "/unit";
    QTest::newRow("the host's root") << "/";
    QTest::newRow("empty") << "";
}

void TestHeadunit::unusableUnitFolders()
{
    QFETCH(QString, folder);
    const Outcome outcome = headunit(withTestActivity({"--unit", folder}));
    QCOMPARE(outcome.status, 4);
    QCOMPARE(outcome.error.count('\n'), 1);
    QVERIFY2(outcome.error.contains(folder), qPrintable(outcome.error));
}

void TestHeadunit::startsWithoutAScriptAndStays()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit}));
    QVERIFY(waitForUnit());
    QVERIFY(program.isRunning());
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
}

/// On an activity without the pages, whose unit leaves nothing.
void TestHeadunit::testsItself()
{
    const QString temporary = m_folder->filePath("temporary");
    QVERIFY(QDir().mkpath(temporary));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TMPDIR", temporary);
    const Outcome outcome =
        run(HEADUNIT, withTestActivity({"--self-test", "--speed", "100"}), environment);
    QCOMPARE(outcome.status, 1);
    const QStringList lines = outcome.output.trimmed().split('\n');
    QCOMPARE(lines.first(), QString("works   Plug-in: " TEST_ACTIVITY));
    QCOMPARE(lines.filter(QRegularExpression("^works   ")).size(), 7);
    QCOMPARE(lines.filter(QRegularExpression("^FAILED  .*: the button \"exit\" is not to be seen"))
                 .size(),
             12);
    QCOMPARE(lines.last(), QString("7 of 19 work."));
    QCOMPARE(QDir(temporary).entryList({"headunit*"}), QStringList());
}

void TestHeadunit::selfTestThatIsEnded()
{
    Program program(HEADUNIT, withTestActivity({"--self-test", "--speed", "0.1"}));
    QVERIFY(
        QTest::qWaitFor([&program] { return program.outputSoFar().contains("Sticks"); }, 60000));
    program.send(SIGTERM);
    const Outcome outcome = program.finish();
    QCOMPARE(outcome.status, 1);
    QVERIFY2(!outcome.output.contains("FAILED"), qPrintable(outcome.output));
    QVERIFY2(!outcome.output.contains("of 19"), qPrintable(outcome.output));
}

void TestHeadunit::secondStartFindsTheStateOfTheFirst()
{
    QCOMPARE(headunit(withTestActivity(
                          {"--unit", m_unit, "--script", script("setting a 1\nplug usb1\n")}))
                 .status,
             0);
    const Outcome outcome = headunit(
        withTestActivity({"--unit", m_unit, "--script", script("see plugged\nsetting a\n")}));
    QCOMPARE(outcome.error.trimmed(), QString());
    QCOMPARE(outcome.output, QString("  1\n"));
    // The file of the journal goes on, too.
    QFile journal(m_unit + "/journal.log");
    QVERIFY(journal.open(QIODevice::ReadOnly));
    QCOMPARE(journal.readAll().count(" unit booted\n"), 2);
}

void TestHeadunit::secondStartOnTheSameFolderIsRefused()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit}));
    QVERIFY(waitForUnit());
    const Outcome second = headunit(withTestActivity({"--unit", m_unit}));
    QCOMPARE(second.status, 4);
    QCOMPARE(second.error.count('\n'), 1);
    QVERIFY2(second.error.contains(m_unit), qPrintable(second.error));
    // The first one is none the worse for it.
    QCOMPARE(control({"journal"}).status, 0);
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
}

void TestHeadunit::startsAgainAfterItWasKilled()
{
    {
        const Program killed(HEADUNIT, withTestActivity({"--unit", m_unit}));
        QVERIFY(waitForUnit());
        QCOMPARE(control({"setting", "a", "1"}).status, 0);
    }
    QCOMPARE(control({"mark"}).status, 3);
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit}));
    QVERIFY(waitForUnit());
    QCOMPARE(control({"setting", "a"}).output, QString("1\n"));
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
}

void TestHeadunit::folderWithBlanks()
{
    m_unit = m_folder->filePath("a unit's folder");
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit}));
    QVERIFY(waitForUnit());
    QCOMPARE(control({"plug", "usb0"}).status, 0);
    QCOMPARE(control({"see", "plugged"}).status, 0);
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
}

void TestHeadunit::controlledFromOutside()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit}));
    QVERIFY(waitForUnit());
    QCOMPARE(control({"key", "FACTORY"}).status, 0);
    QCOMPARE(control({"expect", "framework started factorydebug"}).status, 0);
    QCOMPARE(control({"see", "test activity"}).status, 0);
    QCOMPARE(control({"press", "count"}).status, 0);
    QCOMPARE(control({"see", "presses: 1"}).status, 0);
    QCOMPARE(control({"shot", m_folder->filePath("shot.png")}).status, 0);
    QCOMPARE(QImage(m_folder->filePath("shot.png")).size(), QSize(800, 480));
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
}

void TestHeadunit::controlWhileTheScreenHangs()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit}));
    QVERIFY(waitForUnit());
    QCOMPARE(control({"key", "FACTORY"}).status, 0);
    QCOMPARE(control({"see", "test activity"}).status, 0);
    QCOMPARE(control({"shot", m_folder->filePath("before.png")}).status, 0);

    // The plug-in's own code keeps the graphical thread for three seconds.
    Program client(HEADUNIT_CTL, {"--unit", m_unit});
    client.type("press block nowait\nexpect \"trace blocking\"\n"
                "plug usb0\nexpect \"storage plug usb0\"\n"
                "shot "
                + m_folder->filePath("during.png").toLocal8Bit()
                + "\nabsent \"trace blocked no more\"\n");
    const Outcome outcome = client.finish();
    QVERIFY2(outcome.status == 0, qPrintable(outcome.output + outcome.error));
    // A command for the screen waits for it.
    QCOMPARE(control({"press", "count"}).status, 0);
    QCOMPARE(control({"expect", "trace blocked no more", "0"}).status, 0);

    // The picture shows what was painted before the thread was blocked, and no less.
    const QImage before(m_folder->filePath("before.png"));
    const QImage during(m_folder->filePath("during.png"));
    QCOMPARE(during.size(), QSize(800, 480));
    QVERIFY(before.copy(20, 20, 400, 40) != during.copy(20, 20, 400, 40));
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
}

void TestHeadunit::saysWhereItIs_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("line");
    QTest::newRow("with a socket")
        << QStringList() << "The unit is in %1; talk to it with: headunit-ctl --unit \"%1\"\n";
    QTest::newRow("without") << QStringList{
        "--no-socket"} << "The unit is in %1; without a socket nothing but a signal reaches it\n";
}

void TestHeadunit::saysWhereItIs()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, line);
    m_unit = m_folder->filePath("a unit");
    Program program(HEADUNIT, withTestActivity(QStringList{"--unit", m_unit} + arguments));
    QTRY_COMPARE_WITH_TIMEOUT(program.outputSoFar(), line.arg(m_unit), 30000);
    program.send(SIGTERM);
    const Outcome outcome = program.finish();
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.error, QString());
}

void TestHeadunit::controlsExitStatus()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit}));
    QVERIFY(waitForUnit());
    const Outcome failed = control({"press", "idNone"});
    QCOMPARE(failed.status, 1);
    QCOMPARE(failed.error, QString("there is no button \"idNone\" on the screen\n"));
    QCOMPARE(failed.output, QString());

    QCOMPARE(control({"--colour"}).status, 2);

    const Outcome nobody = run(HEADUNIT_CTL, {"--unit", m_folder->path(), "mark"});
    QCOMPARE(nobody.status, 3);
    QCOMPARE(nobody.error, QString("No unit runs on the folder \"%1\".\n").arg(m_folder->path()));

    QCOMPARE(run(HEADUNIT_CTL, {"--help"}).status, 0);
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
    QCOMPARE(control({"mark"}).status, 3);
}

void TestHeadunit::controlExplainsWithoutAUnit()
{
    const Outcome all = control({"help"});
    QCOMPARE(all.status, 0);
    QVERIFY2(all.output.startsWith("Touch, for example: press idCapture\n"),
             qPrintable(all.output));
    const Outcome one = control({"help", "pull"});
    QCOMPARE(one.status, 0);
    QCOMPARE(one.output, QString("pull SLOT\n  Pulls the stick.\nFor example: pull usb0\n"));
    const Outcome none = control({"help", "pul"});
    QCOMPARE(none.status, 1);
    QCOMPARE(none.error, QString("unknown command \"pul\"; \"help\" lists them; near: pull\n"));
    QCOMPARE(control({"help", "a", "b"}).error, QString("usage: help [COMMAND]\n"));
}

void TestHeadunit::controlFollowsTheJournal()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit}));
    QVERIFY(waitForUnit());
    Program follower(HEADUNIT_CTL, {"--unit", m_unit, "journal", "--follow", "settings"});
    // So few that they would fit into the buffer of who does not tell them at once.
    for (int line = 0; line < 100 && follower.outputSoFar().isEmpty(); ++line) {
        QCOMPARE(control({"setting", "a", "1"}).status, 0);
    }
    QVERIFY(follower.outputSoFar().endsWith("settings a = 1\n"));
    QVERIFY(follower.isRunning());
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(follower.finish().status, 0);
    QCOMPARE(program.finish().status, 0);
}

FACTORY_TEST_GUILESS_MAIN(TestHeadunit)
#include "tst_headunit.moc"
