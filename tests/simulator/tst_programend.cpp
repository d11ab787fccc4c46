#include "program.h"

#include "support/testmain.h"

#include <QDirIterator>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <unistd.h>

/// How the program "headunit" ends, and what it leaves.
class TestProgramEnd : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void signalsEndIt_data();
    void signalsEndIt();
    void signalEndsAScriptThatWaits();
    void signalEndsABlockedScreen();
    void quitEndsABlockedScreen();
    void quitWaitsForABlockedScreenALittle();
    void quitEndsARunawayRepeat();
    void rebootSaysThatTheScreenIsBlocked();

private:
    QStringList arguments(const QString &plugin) const;
    QProcessEnvironment environment() const;
    Outcome control(const QStringList &command) const;
    /// The console answers, and the screen shows the activity.
    void open() const;
    /// A page's work keeps the graphical thread for ever.
    void block() const;
    /// What the program has made and not removed, in the unit's folder and where it keeps the rest.
    QStringList leftovers() const;

    QScopedPointer<QTemporaryDir> m_folder;
    QString m_unit;
};

void TestProgramEnd::init()
{
    m_folder.reset(new QTemporaryDir);
    m_unit = m_folder->filePath("unit");
    QVERIFY(QDir().mkpath(m_folder->filePath("tmp")));
}

QStringList TestProgramEnd::arguments(const QString &plugin) const
{
    return {"--headless", "--unit", m_unit, "--plugin", plugin};
}

QProcessEnvironment TestProgramEnd::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TMPDIR", m_folder->filePath("tmp"));
    // Else Qt makes a folder for it there, which serves all of the user's programs.
    environment.insert("XDG_RUNTIME_DIR", m_folder->path());
    return environment;
}

Outcome TestProgramEnd::control(const QStringList &command) const
{
    return run(HEADUNIT_CTL, QStringList{"--unit", m_unit} + command, environment());
}

void TestProgramEnd::open() const
{
    QTRY_COMPARE_WITH_TIMEOUT(control({"mark"}).status, 0, 30000);
    QCOMPARE(control({"key", "FACTORY"}).status, 0);
    QCOMPARE(control({"expect", "framework started factorydebug", "30000"}).status, 0);
    QVERIFY(!leftovers().isEmpty());
}

void TestProgramEnd::block() const
{
    QCOMPARE(control({"press", "hang", "nowait"}).status, 0);
    QCOMPARE(control({"expect", "trace hanging"}).status, 0);
}

QStringList TestProgramEnd::leftovers() const
{
    QStringList found;
    QDirIterator all(m_folder->filePath("tmp"),
                     QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        all.next();
        // The folder of the consoles' sockets serves all of the user's units.
        if (all.fileName() != QString("headunit-%1").arg(geteuid())) {
            found.append(all.fileName());
        }
    }
    for (const char *path : {"lock", "dev/ttyS3"}) {
        const QFileInfo info(m_unit + '/' + path);
        if (info.exists() || info.isSymLink()) {
            found.append(path);
        }
    }
    return found;
}

void TestProgramEnd::signalsEndIt_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void TestProgramEnd::signalsEndIt()
{
    QFETCH(int, signal);
    Program program(HEADUNIT, arguments(FACTORYDEBUG_PLUGIN), environment());
    open();
    // Loaded once more, from a copy.
    QCOMPARE(control({"reboot"}).status, 0);
    QCOMPARE(control({"expect", "unit booted", "20000"}).status, 0);
    program.send(signal);
    QCOMPARE(program.finish().status, 0);
    QCOMPARE(leftovers(), QStringList());
}

void TestProgramEnd::signalEndsAScriptThatWaits()
{
    Program program(HEADUNIT, arguments(FACTORYDEBUG_PLUGIN) + QStringList{"--script", "-"},
                    environment());
    program.type("wait 3600000\n");
    open();
    program.send(SIGTERM);
    QCOMPARE(program.finish().status, 0);
    QCOMPARE(leftovers(), QStringList());
}

void TestProgramEnd::signalEndsABlockedScreen()
{
    Program program(HEADUNIT, arguments(TEST_ACTIVITY), environment());
    open();
    block();
    program.send(SIGTERM);
    program.send(SIGINT);
    QCOMPARE(program.finish().status, 7);
    QCOMPARE(leftovers(), QStringList());
}

void TestProgramEnd::quitEndsABlockedScreen()
{
    Program program(HEADUNIT, arguments(TEST_ACTIVITY), environment());
    open();
    block();
    QElapsedTimer time;
    time.start();
    QCOMPARE(control({"quit"}).status, 0);
    const Outcome outcome = program.finish();
    QCOMPARE(outcome.status, 7);
    QVERIFY2(time.elapsed() >= 4500 && time.elapsed() < 20000,
             qPrintable(QString::number(time.elapsed())));
    QVERIFY2(outcome.error.endsWith(
                 "The screen is blocked by a page's work; the program ended without it.\n"),
             qPrintable(outcome.error));
    QCOMPARE(leftovers(), QStringList());
    QFile journal(m_unit + "/journal.log");
    QVERIFY(journal.open(QIODevice::ReadOnly));
    QVERIFY(journal.readAll().endsWith(" unit ended with its screen blocked\n"));
}

void TestProgramEnd::quitWaitsForABlockedScreenALittle()
{
    Program program(HEADUNIT, arguments(TEST_ACTIVITY), environment());
    open();
    // For three seconds.
    QCOMPARE(control({"press", "block", "nowait"}).status, 0);
    QCOMPARE(control({"expect", "trace blocking"}).status, 0);
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
    QCOMPARE(leftovers(), QStringList());
}

void TestProgramEnd::quitEndsARunawayRepeat()
{
    Program program(HEADUNIT, arguments(FACTORYDEBUG_PLUGIN), environment());
    open();
    {
        const Program gone(HEADUNIT_CTL,
                           {"--unit", m_unit, "repeat", "100000", "repeat 100000 'setting a 1'"},
                           environment());
        QCOMPARE(control({"expect", "settings a = 1", "30000"}).status, 0);
    }
    QCOMPARE(control({"reboot"}).status, 0);
    QCOMPARE(control({"expect", "unit booted", "20000"}).status, 0);
    QCOMPARE(control({"quit"}).status, 0);
    QCOMPARE(program.finish().status, 0);
    QCOMPARE(leftovers(), QStringList());
}

void TestProgramEnd::rebootSaysThatTheScreenIsBlocked()
{
    Program program(HEADUNIT, arguments(TEST_ACTIVITY), environment());
    open();
    block();
    const Outcome reboot = control({"reboot"});
    QCOMPARE(reboot.status, 1);
    QCOMPARE(reboot.error,
             QString("the screen is blocked by a page's work; the unit restarts when that has "
                     "ended\n"));
    QCOMPARE(control({"quit"}).status, 0);
    program.finish();
}

FACTORY_TEST_GUILESS_MAIN(TestProgramEnd)
#include "tst_programend.moc"
