#include "program.h"

#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

namespace
{

const int patienceMs = 60000;

QStringList withTestActivity(const QStringList &arguments)
{
    return QStringList{"--headless", "--plugin", TEST_ACTIVITY} + arguments;
}

Outcome headunit(const QStringList &arguments)
{
    return run(HEADUNIT, arguments);
}

/// What the program said itself; the plug-in's trace lines are not its own.
QString ownWords(const Outcome &outcome)
{
    QStringList lines = outcome.error.split('\n', Qt::SkipEmptyParts);
    lines.removeAll("~FactoryDebugctivity");
    return lines.join('\n');
}

} // namespace

class TestHeadunit : public QObject
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

    void scriptRuns();
    void scriptFails_data();
    void scriptFails();
    void failedExpectationShowsTheJournal();
    void scriptFromStandardInput();
    void unreadableScripts_data();
    void unreadableScripts();
    void quitEndsTheScript();
    void startsWithoutAScriptAndStays();
    void timePassesFaster();

    void secondStartFindsTheStateOfTheFirst();
    void secondStartOnTheSameFolderIsRefused();
    void startsAgainAfterItWasKilled();
    void folderWithBlanks();
    void rebootBringsTheActivityBack();

    void controlledFromOutside();
    void controlWhileTheScreenHangs();
    void controlsExitStatus();
    void noSocketWhenNotWanted();

private:
    /// Writes a script and gives its name.
    QString script(const QByteArray &content) const;
    Outcome control(const QStringList &command) const;
    bool waitForUnit() const;

    QScopedPointer<QTemporaryDir> m_folder;
    QString m_unit;
};

void TestHeadunit::init()
{
    m_folder.reset(new QTemporaryDir);
    m_unit = m_folder->filePath("unit");
}

QString TestHeadunit::script(const QByteArray &content) const
{
    QFile file(m_folder->filePath("script.txt"));
    file.open(QIODevice::WriteOnly);
    file.write(content);
    return file.fileName();
}

Outcome TestHeadunit::control(const QStringList &command) const
{
    return run(HEADUNIT_CTL, QStringList{"--unit", m_unit} + command);
}

bool TestHeadunit::waitForUnit() const
{
    return QTest::qWaitFor([this] { return control({"mark"}).status == 0; }, patienceMs);
}

void TestHeadunit::help()
{
    const Outcome outcome = headunit({"--help"});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.error, QString());
    for (const QString &said :
         QStringList{"--unit", "--plugin", "--script", "--headless", "--speed", "--no-socket",
                     "--version", "Exit status:", "/factorydebug/unit"}) {
        QVERIFY2(outcome.output.contains(said), qPrintable(said));
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
    QTest::newRow("speed 0") << QStringList{"--speed", "0"} << speed.arg("0");
    QTest::newRow("speed negative") << QStringList{"--speed=-1"} << speed.arg("-1");
    QTest::newRow("speed no number") << QStringList{"--speed", "fast"} << speed.arg("fast");
    QTest::newRow("speed infinite") << QStringList{"--speed", "inf"} << speed.arg("inf");
    QTest::newRow("speed empty") << QStringList{"--speed", ""} << speed.arg("");
    QTest::newRow("speed too high") << QStringList{"--speed", "1001"} << speed.arg("1001");
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
    for (const QString &name : QStringList{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
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

void TestHeadunit::scriptRuns()
{
    const QString name = script("key FACTORY\nsee 'test activity'\npress count\n"
                                "see 'presses: 1'\nsetting a 5\nsetting a\n");
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QCOMPARE(ownWords(outcome), QString());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.output, QString("  5\n"));
}

void TestHeadunit::scriptFails_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::newRow("first line") << QByteArray("dance\n")
                                << "%1:1: unknown command \"dance\"; \"help\" lists them";
    QTest::newRow("behind comments and empty lines")
        << QByteArray("# one\n\n# three\nsetting a 1\npress idNone\nsetting b 1\n")
        << "%1:5: there is no button \"idNone\" on the screen";
    QTest::newRow("last line without an end")
        << QByteArray("setting a 1\ntap 900 1")
        << "%1:2: X is a whole number from 0 to 799, not \"900\"";
    QTest::newRow("open quote") << QByteArray("see 'x\n")
                                << "%1:1: the quote at column 5 is not closed";
}

void TestHeadunit::scriptFails()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    const QString name = script(content);
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(ownWords(outcome), error.arg(name));
}

void TestHeadunit::failedExpectationShowsTheJournal()
{
    const QString name =
        script("mark\nsetting a 1\nsetting b 2\nexpect 'settings a'\nexpect x 20\n");
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(ownWords(outcome),
             name
                 + ":5: no line matched \"x\" within 20 ms; the journal's last lines since the "
                   "last match:\n"
                   "  settings b = 2");
}

void TestHeadunit::scriptFromStandardInput()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit, "--script", "-"}));
    program.type("setting a 1\n");
    QVERIFY(waitForUnit());
    QTRY_COMPARE(control({"setting", "a"}).output, QString("1\n"));
    QVERIFY(program.isRunning());
    program.type("setting a 2\nquit too early\n");
    const Outcome outcome = program.finish();
    QCOMPARE(outcome.status, 1);
    QCOMPARE(ownWords(outcome), QString("<stdin>:3: usage: quit"));
}

void TestHeadunit::unreadableScripts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << "/etc/passwd/nowhere/script" << 2 << "Not a directory";
    QTest::newRow("a folder") << "/etc" << 2 << "Is a directory";
    QTest::newRow("read error") << "/proc/self/mem" << 1 << "Input/output error";
}

void TestHeadunit::unreadableScripts()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QTEST(outcome.status, "status");
    QCOMPARE(ownWords(outcome), QString("The script \"%1\" cannot be read: %2.").arg(name, reason));
}

void TestHeadunit::quitEndsTheScript()
{
    const QString name = script("setting a 1\nquit\ndance\n");
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QCOMPARE(ownWords(outcome), QString());
    QCOMPARE(outcome.status, 0);
}

void TestHeadunit::startsWithoutAScriptAndStays()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit}));
    QVERIFY(waitForUnit());
    QVERIFY(program.isRunning());
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
}

void TestHeadunit::timePassesFaster()
{
    const QString name = script("wait 60000\n");
    QElapsedTimer time;
    time.start();
    const Outcome outcome =
        headunit(withTestActivity({"--unit", m_unit, "--speed", "100", "--script", name}));
    QCOMPARE(outcome.status, 0);
    // 60 s of the unit are 0.6 s.
    QVERIFY2(time.elapsed() >= 600, qPrintable(QString::number(time.elapsed())));
    QVERIFY2(time.elapsed() < 30000, qPrintable(QString::number(time.elapsed())));
}

void TestHeadunit::secondStartFindsTheStateOfTheFirst()
{
    QCOMPARE(headunit(withTestActivity(
                          {"--unit", m_unit, "--script", script("setting a 1\nplug usb1\n")}))
                 .status,
             0);
    const Outcome outcome = headunit(
        withTestActivity({"--unit", m_unit, "--script", script("see plugged\nsetting a\n")}));
    QCOMPARE(ownWords(outcome), QString());
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
    QCOMPARE(control({"help"}).status, 3);
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

void TestHeadunit::rebootBringsTheActivityBack()
{
    const QString name = script("key FACTORY\nsee 'test activity'\npress count\n"
                                "see '/^presses: 1$/'\npress restart\nexpect 'unit reboot'\n"
                                "expect 'framework closed factorydebug'\n"
                                "see Starting\n"
                                "expect 'unit booted' 20000\n"
                                "expect 'framework started factorydebug'\nsee 'test activity'\n"
                                "press count\nsee '/^presses: 1$/'\n");
    const Outcome outcome =
        headunit(withTestActivity({"--unit", m_unit, "--speed", "2", "--script", name}));
    QVERIFY2(outcome.status == 0, qPrintable(outcome.error));
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
    QCOMPARE(control({"press", "block", "nowait"}).status, 0);
    QCOMPARE(control({"expect", "trace blocking"}).status, 0);
    QCOMPARE(control({"plug", "usb0"}).status, 0);
    QCOMPARE(control({"expect", "storage plug usb0"}).status, 0);
    QCOMPARE(control({"shot", m_folder->filePath("during.png")}).status, 0);
    QCOMPARE(control({"absent", "trace blocked no more"}).status, 0);
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

void TestHeadunit::controlsExitStatus()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit}));
    QVERIFY(waitForUnit());
    const Outcome failed = control({"press", "idNone"});
    QCOMPARE(failed.status, 1);
    QCOMPARE(failed.error, QString("there is no button \"idNone\" on the screen\n"));
    QCOMPARE(failed.output, QString());

    const Outcome usage = control({});
    QCOMPARE(usage.status, 2);
    QCOMPARE(usage.error, QString("A command is missing; --help tells more.\n"));
    QCOMPARE(control({"--colour"}).status, 2);

    const Outcome nobody = run(HEADUNIT_CTL, {"--unit", m_folder->path(), "help"});
    QCOMPARE(nobody.status, 3);
    QCOMPARE(nobody.error, QString("No unit runs on the folder \"%1\".\n").arg(m_folder->path()));

    QCOMPARE(run(HEADUNIT_CTL, {"--help"}).status, 0);
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
    QCOMPARE(control({"help"}).status, 3);
}

void TestHeadunit::noSocketWhenNotWanted()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit, "--no-socket", "--script", "-"}));
    program.type("setting a 1\n");
    QTRY_VERIFY(QFile::exists(m_unit + "/settings.ini"));
    QCOMPARE(control({"help"}).status, 3);
    program.type("quit\n");
    QCOMPARE(program.finish().status, 0);
}

QTEST_GUILESS_MAIN(TestHeadunit)
#include "tst_headunit.moc"
