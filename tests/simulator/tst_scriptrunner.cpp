#include "simulator/console/scriptrunner.h"

#include "testsimulator.h"

#include "support/testmain.h"

#include <QtTest>

using namespace simulator;

class TestScriptRunner : public QObject
{
    Q_OBJECT

private slots:
    void runsToTheEnd();
    void stopsAtTheFirstWrongLine();
    void stopsAtQuit();
    void readsTheJournalFromItsStart();
    void recordedSessions_data();
    void recordedSessions();
    void missingScript();
    void endsWithTheProgramWhileItWaits();
};

namespace
{

/// A script in a file that lives as long as this.
class ScriptFile
{
public:
    explicit ScriptFile(const QByteArray &content)
    {
        m_file.open();
        m_file.write(content);
        m_file.close();
    }

    QString name() const { return m_file.fileName(); }

private:
    QTemporaryFile m_file;
};

/// Runs it and tells whether it was successful.
bool run(TestSimulator &unit, const ScriptFile &script)
{
    ScriptRunner runner(unit.console(), unit.journal());
    QVector<bool> over;
    QObject::connect(&runner, &ScriptRunner::over, &runner,
                     [&over](bool isFine) { over.append(isFine); });
    QString error;
    if (!runner.open(script.name(), &error)) {
        qFatal("%s", qPrintable(error));
    }
    runner.start();
    // Without an event loop, which the command "quit" would end.
    const bool ended = QTest::qWaitFor([&over] { return !over.isEmpty(); }, 30000);
    unit.console().close();
    return ended && runner.wait(30000) && over.first();
}

} // namespace

void TestScriptRunner::runsToTheEnd()
{
    TestSimulator unit;
    const ScriptFile script("# a comment\n\nsetting a 1\n  setting b 2\r\nkey FACTORY\n"
                            "see \"test activity\"\nsetting c 3");
    QVERIFY(run(unit, script));
    QCOMPARE(unit.journal().lines("settings").size(), 3);
}

void TestScriptRunner::stopsAtTheFirstWrongLine()
{
    TestSimulator unit;
    const ScriptFile script("setting a 1\npress idNone\nsetting b 2\n");
    QVERIFY(!run(unit, script));
    QCOMPARE(unit.journal().lines("settings"), QStringList{"settings a = 1"});
}

void TestScriptRunner::stopsAtQuit()
{
    TestSimulator unit;
    const ScriptFile script("setting a 1\nquit\nsetting b 2\n");
    QVERIFY(run(unit, script));
    QCOMPARE(unit.journal().lines("settings"), QStringList{"settings a = 1"});
}

void TestScriptRunner::readsTheJournalFromItsStart()
{
    TestSimulator unit;
    unit.journal().write("probe", "before");
    const ScriptFile script("absent \"probe before\"\nsetting probe new\nexpect \"probe = new\"\n");
    QVERIFY(run(unit, script));
}

void TestScriptRunner::recordedSessions_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<bool>("runs");
    QTest::newRow("known") << QByteArray("# headunit session 1\n") << true;
    QTest::newRow("from elsewhere") << QByteArray("# headunit session 1 \r\n") << true;
    QTest::newRow("of another format") << QByteArray("# headunit session 2\n") << false;
    QTest::newRow("of no format") << QByteArray("# headunit session \n") << false;
    QTest::newRow("only a comment") << QByteArray("# headunit sessions 2\n") << true;
    QTest::newRow("unknown command") << QByteArray("# headunit session 1\nfly\n") << false;
}

void TestScriptRunner::recordedSessions()
{
    QFETCH(QByteArray, script);
    QFETCH(bool, runs);
    TestSimulator unit;
    QCOMPARE(run(unit, ScriptFile(script + "setting a 1\n")), runs);
    QCOMPARE(unit.journal().lines("settings").size(), int(runs));
}

void TestScriptRunner::missingScript()
{
    TestSimulator unit;
    ScriptRunner runner(unit.console(), unit.journal());
    QString error;
    QVERIFY(!runner.open("/etc/passwd/nowhere/script", &error));
    QVERIFY2(error.contains("/etc/passwd/nowhere/script"), qPrintable(error));
}

void TestScriptRunner::endsWithTheProgramWhileItWaits()
{
    TestSimulator unit;
    const ScriptFile script("wait 3600000\n");
    QElapsedTimer time;
    time.start();
    {
        ScriptRunner runner(unit.console(), unit.journal());
        QString error;
        QVERIFY(runner.open(script.name(), &error));
        runner.start();
        QTest::qWait(50);
        unit.console().close();
    }
    QVERIFY2(time.elapsed() < 30000, qPrintable(QString::number(time.elapsed())));
}

FACTORY_TEST_MAIN(TestScriptRunner)
#include "tst_scriptrunner.moc"
