#include "headunittest.h"

#include "support/testmain.h"

#include <QtTest>
#include <QXmlStreamReader>

/// The program "headunit" with a script.
class TestHeadunitScript : public QObject, private HeadunitTest
{
    Q_OBJECT

private slots:
    void init();

    void scriptRuns();
    void scriptFails_data();
    void scriptFails();
    void failedExpectationShowsTheJournal();
    void scriptFromStandardInput();
    void unreadableScripts_data();
    void unreadableScripts();
    void quitEndsTheScript();
    void timePassesFaster();
    void rebootBringsTheActivityBack();
    void tracesAreInTheJournal();
    void tracesAreShownToWhoWantsThem();
    void noSocketWhenNotWanted();
    void reports_data();
    void reports();
    void reportThatCannotBeWritten();
    void reportNeedsAScript();
};

void TestHeadunitScript::init()
{
    makeFolder();
}

void TestHeadunitScript::scriptRuns()
{
    QFile included(m_folder->filePath("included.txt"));
    QVERIFY(included.open(QIODevice::WriteOnly));
    included.write("setting a 5\nsetting $key\n");
    included.close();
    const QString name = script("key FACTORY\nsee 'test activity'\npress count\n"
                                "see 'presses: 1'\nset key a\ninclude '"
                                + included.fileName().toUtf8() + "'\nfails press idNone\n");
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QCOMPARE(outcome.error.trimmed(), QString());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.output, QString("  5\n  there is no button \"idNone\" on the screen\n"));
}

void TestHeadunitScript::scriptFails_data()
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

void TestHeadunitScript::scriptFails()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    const QString name = script(content);
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.error.trimmed(), error.arg(name));
}

void TestHeadunitScript::failedExpectationShowsTheJournal()
{
    // What the screen shows comes behind all that its start has left to be done.
    const QString name =
        script("see FACTORY\nmark\nsetting a 1\nsetting b 2\nexpect 'settings a'\nexpect x 20\n");
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.error,
             "  settings b = 2\n" + name
                 + ":6: no line matched \"x\" within 20 ms; shown are the journal's last lines "
                   "since the last match\n");
}

void TestHeadunitScript::scriptFromStandardInput()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit, "--script", "-"}));
    program.type("setting a 1\n");
    QVERIFY(waitForUnit());
    QTRY_COMPARE(control({"setting", "a"}).output, QString("1\n"));
    QVERIFY(program.isRunning());
    program.type("setting a 2\nquit too early\n");
    const Outcome outcome = program.finish();
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.error.trimmed(), QString("<stdin>:3: usage: quit"));
}

void TestHeadunitScript::unreadableScripts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << "/etc/passwd/nowhere/script" << 2 << "Not a directory";
    QTest::newRow("a folder") << "/etc" << 2 << "Is a directory";
    QTest::newRow("read error") << "/proc/self/mem" << 1 << "Input/output error";
}

void TestHeadunitScript::unreadableScripts()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QTEST(outcome.status, "status");
    QCOMPARE(outcome.error.trimmed(),
             QString("The script \"%1\" cannot be read: %2.").arg(name, reason));
}

void TestHeadunitScript::quitEndsTheScript()
{
    const QString name = script("setting a 1\nquit\ndance\n");
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QCOMPARE(outcome.error.trimmed(), QString());
    QCOMPARE(outcome.status, 0);
}

void TestHeadunitScript::timePassesFaster()
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

void TestHeadunitScript::rebootBringsTheActivityBack()
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

void TestHeadunitScript::tracesAreInTheJournal()
{
    const QString name = script("key FACTORY\nsee 'test activity'\nkey HOME\n"
                                "expect 'framework closed factorydebug'\nabsent nothing\ndance\n");
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--script", name}));
    QCOMPARE(outcome.error, name + ":6: unknown command \"dance\"; \"help\" lists them\n");
    QFile journal(m_unit + "/journal.log");
    QVERIFY(journal.open(QIODevice::ReadOnly));
    QVERIFY(journal.readAll().contains(" trace ~FactoryDebugctivity\n"));
}

void TestHeadunitScript::tracesAreShownToWhoWantsThem()
{
    const Outcome outcome = headunit(
        withTestActivity({"--unit", m_unit, "--verbose", "--script", script("setting a 1\n")}));
    QCOMPARE(outcome.error, QString("~FactoryDebugctivity\n"));
}

void TestHeadunitScript::noSocketWhenNotWanted()
{
    Program program(HEADUNIT, withTestActivity({"--unit", m_unit, "--no-socket", "--script", "-"}));
    program.type("setting a 1\n");
    QTRY_VERIFY(QFile::exists(m_unit + "/settings.ini"));
    QCOMPARE(control({"mark"}).status, 3);
    program.type("quit\n");
    QCOMPARE(program.finish().status, 0);
}

void TestHeadunitScript::reports_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("failures");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("more");
    QTest::newRow("all went well") << QByteArray("setting a 1\n") << "0"
                                   << ""
                                   << "";
    QTest::newRow("ended by quit") << QByteArray("quit\ndance\n") << "0"
                                   << ""
                                   << "";
    QTest::newRow("failed") << QByteArray("\ndance\n") << "1"
                            << "%1:2: unknown command \"dance\"; \"help\" lists them"
                            << "";
    QTest::newRow("with lines") << QByteArray("setting a '<1>'\nsetting b 2\nabsent settings\n")
                                << "1"
                                << "%1:3: the journal has \"settings\""
                                << "settings a = <1>\nsettings b = 2";
    QTest::newRow("what XML cannot hold")
        << QByteArray("see '\x01x' 0\nx\n") << "1"
        << "%1:1: the screen does not show \"x\"; shown are its texts"
        << "?";
}

void TestHeadunitScript::reports()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    QFETCH(QString, more);
    const QString name = script(content);
    const QString report = m_folder->filePath("report.xml");
    const Outcome outcome =
        headunit(withTestActivity({"--unit", m_unit, "--script", name, "--report", report}));
    QCOMPARE(outcome.status, message.isEmpty() ? 0 : 1);
    QFile file(report);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    QVERIFY(xml.readNextStartElement());
    QCOMPARE(xml.name(), QString("testsuite"));
    QCOMPARE(xml.attributes().value("tests"), QString("1"));
    QTEST(xml.attributes().value("failures").toString(), "failures");
    QVERIFY(xml.readNextStartElement());
    QCOMPARE(xml.name(), QString("testcase"));
    QCOMPARE(xml.attributes().value("name"), name);
    bool isNumber = false;
    QVERIFY(xml.attributes().value("time").toDouble(&isNumber) < 60 && isNumber);
    QCOMPARE(xml.readNextStartElement(), !message.isEmpty());
    if (!message.isEmpty()) {
        QCOMPARE(xml.name(), QString("failure"));
        QCOMPARE(xml.attributes().value("message"), message.arg(name));
        const QString text = xml.readElementText();
        QVERIFY2(more == "?" || text == more, qPrintable(text));
    }
    while (!xml.atEnd()) {
        xml.readNext();
    }
    QCOMPARE(xml.errorString(), QString());
}

void TestHeadunitScript::reportThatCannotBeWritten()
{
    const QString name = script("setting a 1\n");
    const Outcome outcome = headunit(withTestActivity(
        {"--unit", m_unit, "--script", name, "--report", "/etc/passwd/nowhere/report.xml"}));
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.error.trimmed().startsWith(
                 "The report \"/etc/passwd/nowhere/report.xml\" cannot be written: "),
             qPrintable(outcome.error));
}

void TestHeadunitScript::reportNeedsAScript()
{
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--report", "x.xml"}));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.error, QString("Only a script has a report.\n"));
}

FACTORY_TEST_GUILESS_MAIN(TestHeadunitScript)
#include "tst_headunit_script.moc"
