#include "simulator/commands/allcommands.h"

#include "simulator/console/console.h"
#include "simulator/console/consolesession.h"
#include "simulator/framework/graphicalthread.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/journalreader.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace simulator;

/// The commands that run others.
class TestScriptCommands : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void fails_data();
    void fails();
    void failsHandsOnTheEndOfASession();
    void commandsRunOneAnotherSoDeep();
    void valuesAreSetForLaterLines();
    void setRefusesOtherNames();
    void includeRunsLines();
    void includeLooksInTheSessionsFolder();
    void includeStopsAtTheFirstWrongLine();
    void includeNamesEachScript();
    void includeEndsWithTheSession();
    void includeRefuses_data();
    void includeRefuses();

private:
    ConsoleResult run(const QString &line) { return m_console->run(line, *m_session); }
    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    hardware::Journal m_journal;
    hardware::JournalReader m_reader{m_journal};
    GraphicalThread m_graphicalThread;
    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<Console> m_console;
    QScopedPointer<ConsoleSession> m_session;
    QStringList m_painted;
    QStringList m_told;
};

void TestScriptCommands::init()
{
    m_painted.clear();
    m_told.clear();
    m_folder.reset(new QTemporaryDir);
    m_console.reset(new Console(
        m_graphicalThread,
        verbTable()
            + QList<Verb>{{"Test", "paint", "COLOR", "Paints; but no green.", "paint blue"}}));
    addScriptCommands(*m_console);
    m_console->add("paint", Console::Place::AnyThread, Console::Effect::None,
                   [this](const QStringList &arguments, ConsoleSession &) {
                       m_painted += arguments;
                       return arguments.contains("green")
                           ? ConsoleResult::failed("no green", {"is left"})
                           : ConsoleResult::done({"wet"});
                   });
    m_console->add("quit", Console::Place::AnyThread, Console::Effect::None,
                   [](const QStringList &, ConsoleSession &) {
                       ConsoleResult result = ConsoleResult::done();
                       result.endsSession = true;
                       return result;
                   });
    m_session.reset(new ConsoleSession(m_reader));
    m_session->setDirectory(m_folder->path());
    m_session->setListener([this](const QStringList &lines) { m_told += lines; });
}

void TestScriptCommands::fails_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("fails") << "fails paint green"
                           << "" << QStringList{"no green"};
    QTest::newRow("fails, in quotes") << "fails \"paint green\""
                                      << "" << QStringList{"no green"};
    QTest::newRow("does not fail") << "fails paint 'dark blue'"
                                   << "\"paint \"dark blue\"\" did not fail" << QStringList{"wet"};
    QTest::newRow("does not fail to fail")
        << "fails fails paint green"
        << "\"fails paint green\" did not fail" << QStringList{"no green"};
    QTest::newRow("fails not to fail") << "fails fails paint blue"
                                       << "" << QStringList{"\"paint blue\" did not fail"};
    QTest::newRow("misspelled") << "fails pain green"
                                << "unknown command \"pain\"; \"help\" lists them; near: paint"
                                << QStringList();
    QTest::newRow("wrong usage") << "fails paint"
                                 << "usage: paint COLOR" << QStringList();
    QTest::newRow("nothing") << "fails"
                             << "usage: fails COMMAND..." << QStringList();
    QTest::newRow("try what fails") << "try paint green"
                                    << "" << QStringList{"no green"};
    QTest::newRow("try what does not, in quotes") << "try \"paint blue\""
                                                  << "" << QStringList{"wet"};
    QTest::newRow("try what is wrong in itself")
        << "try pain green"
        << "unknown command \"pain\"; \"help\" lists them; near: paint" << QStringList();
}

void TestScriptCommands::fails()
{
    QFETCH(QString, line);
    const ConsoleResult result = run(line);
    QTEST(result.error, "error");
    QTEST(result.lines, "lines");
}

void TestScriptCommands::failsHandsOnTheEndOfASession()
{
    const ConsoleResult result = run("fails quit");
    QCOMPARE(result.error, QString("\"quit\" did not fail"));
    QVERIFY(result.endsSession);
}

void TestScriptCommands::commandsRunOneAnotherSoDeep()
{
    const QString tooDeep = "commands run one another more than 16 deep";
    const QString fails = "fails ";
    QCOMPARE(run(fails.repeated(16) + "paint blue").error, QString());
    QCOMPARE(run(fails.repeated(17) + "paint blue").error, tooDeep);
    QCOMPARE(run(fails.repeated(10000) + "paint blue").error, tooDeep);
    QString repeats = "paint red";
    for (int depth = 0; depth < 17; ++depth) {
        m_session->setValue(QString("v%1").arg(depth), repeats);
        repeats = QString("repeat 1 $v%1").arg(depth);
    }
    QCOMPARE(run(repeats).error, tooDeep);
    QCOMPARE(run("repeat 1 $v15").error, QString());
    QCOMPARE(m_painted, (QStringList{"blue", "red"}));
}

void TestScriptCommands::valuesAreSetForLaterLines()
{
    QCOMPARE(run("set color 'dark blue'").error, QString());
    QCOMPARE(run("paint $color").error, QString());
    QCOMPARE(run("set more \"very ${color}\"").error, QString());
    QCOMPARE(run("set color red").error, QString());
    QCOMPARE(run("paint $color").error, QString());
    QCOMPARE(run("paint \"$more\"").error, QString());
    QCOMPARE(m_painted, (QStringList{"dark blue", "red", "very dark blue"}));
    QCOMPARE(run("paint $colour").error, QString("nothing was set for \"colour\"; near: color"));

    ConsoleSession other(m_reader);
    QVERIFY(!m_console->run("paint $color", other).isOk());
}

void TestScriptCommands::setRefusesOtherNames()
{
    QCOMPARE(run("set 1st red").error,
             QString("NAME is made of letters, digits and \"_\" and begins with no digit, not "
                     "\"1st\""));
}

void TestScriptCommands::includeRunsLines()
{
    write("colors.txt", "# two\n\nset second blue\npaint red\r\npaint $second");
    const ConsoleResult result = run("include colors.txt");
    QCOMPARE(result.error, QString());
    QCOMPARE(m_painted, (QStringList{"red", "blue"}));
    // Told as they came, and not once more.
    QCOMPARE(m_told, (QStringList{"wet", "wet"}));
    QCOMPARE(result.lines, QStringList());
    QCOMPARE(run("paint $second").error, QString());
}

void TestScriptCommands::includeLooksInTheSessionsFolder()
{
    QVERIFY(QDir(m_folder->path()).mkpath("below/further"));
    write("below/further/inner.txt", "paint inner\n");
    write("below/outer.txt", "paint outer\ninclude further/inner.txt\n");
    QVERIFY(!run("include below/outer.txt").isOk());
    m_session->setDirectory("below");
    QCOMPARE(run("include outer.txt").error, QString());
    QCOMPARE(run("include ./further/inner.txt").error, QString());
    QCOMPARE(m_painted, (QStringList{"outer", "outer", "inner", "inner"}));
}

void TestScriptCommands::includeStopsAtTheFirstWrongLine()
{
    write("colors.txt", "paint red\n# none\npaint green\npaint blue\n");
    const ConsoleResult result = run("include colors.txt");
    QCOMPARE(result.error, QString("colors.txt:3: no green"));
    QCOMPARE(result.lines, QStringList{"is left"});
    QCOMPARE(m_told, QStringList{"wet"});
    QCOMPARE(m_painted, (QStringList{"red", "green"}));
}

void TestScriptCommands::includeNamesEachScript()
{
    write("inner.txt", "\ndance\n");
    write("outer.txt", "paint red\ninclude inner.txt\n");
    QCOMPARE(run("include outer.txt").error,
             QString("outer.txt:2: inner.txt:2: unknown command \"dance\"; \"help\" lists them"));
}

void TestScriptCommands::includeEndsWithTheSession()
{
    write("quit.txt", "paint red\nquit\npaint blue\n");
    const ConsoleResult result = run("include quit.txt");
    QVERIFY(result.isOk());
    QVERIFY(result.endsSession);
    QCOMPARE(m_painted, QStringList{"red"});
}

void TestScriptCommands::includeRefuses_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("error");
    const QString none = "there is no script \"%1\"";
    QTest::newRow("missing") << "/etc/passwd/nowhere" << none.arg("/etc/passwd/nowhere");
    QTest::newRow("folder") << "/etc" << none.arg("/etc");
    QTest::newRow("unreadable")
        << "/proc/self/mem"
        << "The script \"/proc/self/mem\" cannot be read: Input/output error.";
    QTest::newRow("itself") << "itself.txt"
                            << QString("itself.txt:1: ").repeated(16)
            + "scripts include one another more than 16 deep";
}

void TestScriptCommands::includeRefuses()
{
    QFETCH(QString, file);
    write("itself.txt", "include itself.txt\n");
    QTEST(run("include " + file).error, "error");
    // It takes none of the depth that the next one has.
    write("fine.txt", "paint red\n");
    QCOMPARE(run("include fine.txt").error, QString());
}

FACTORY_TEST_GUILESS_MAIN(TestScriptCommands)
#include "tst_scriptcommands.moc"
