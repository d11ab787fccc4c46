#include "simulator/console/console.h"

#include "simulator/console/consolesession.h"
#include "simulator/framework/graphicalthread.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/journalreader.h"
#include "support/testmain.h"

#include <QThread>
#include <QtTest>

using namespace simulator;

class TestConsole : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void runsTheCommandWithItsArguments();
    void nothingToRun_data();
    void nothingToRun();
    void wrongLines_data();
    void wrongLines();
    void helpListsEveryCommand();
    void helpExplainsOneCommand();
    void helpRefusesUnknownCommands();
    void runsWhereTheCommandBelongs_data();
    void runsWhereTheCommandBelongs();
    void closedConsoleRunsNoCommands();

private:
    ConsoleResult run(const QString &line);
    ConsoleResult runElsewhere(const QString &line);

    QScopedPointer<GraphicalThread> m_graphicalThread;
    QScopedPointer<Console> m_console;
    QStringList m_arguments;
    QThread *m_ranOn = nullptr;
};

void TestConsole::init()
{
    m_arguments.clear();
    m_ranOn = nullptr;
    m_graphicalThread.reset(new GraphicalThread);
    m_console.reset(
        new Console(*m_graphicalThread,
                    {{"Paint", "paint", "COLOR [LAYERS] [BRUSH]", "Paints.", "paint blue 2"},
                     {"Paint", "sink", "WORD...", "Sinks.", "sink a b"},
                     {"Other", "look", "", "Looks.", "look"},
                     {"Other", "help", "[COMMAND]", "Helps.", "help look"}}));
    const auto remember = [this](const QStringList &arguments, ConsoleSession &) {
        m_arguments = arguments;
        m_ranOn = QThread::currentThread();
        return ConsoleResult::done({"remembered"});
    };
    m_console->add("paint", Console::Place::AnyThread, Console::Effect::None, remember);
    m_console->add("sink", Console::Place::AnyThread, Console::Effect::None, remember);
    m_console->add("look", Console::Place::GraphicalThread, Console::Effect::None, remember);
}

void TestConsole::cleanup()
{
    m_console.reset();
}

ConsoleResult TestConsole::run(const QString &line)
{
    hardware::Journal journal;
    hardware::JournalReader reader(journal);
    ConsoleSession session(reader);
    return m_console->run(line, session);
}

/// Runs a line on another thread while this one has its event loop run.
ConsoleResult TestConsole::runElsewhere(const QString &line)
{
    ConsoleResult result;
    const QScopedPointer<QThread> thread(QThread::create([&] { result = run(line); }));
    thread->start();
    const bool isOver = QTest::qWaitFor([&thread] { return thread->isFinished(); });
    return thread->wait() && isOver ? result : ConsoleResult();
}

void TestConsole::runsTheCommandWithItsArguments()
{
    const ConsoleResult result = run("paint 'dark blue' 2");
    QVERIFY(result.isOk());
    QCOMPARE(result.lines, QStringList{"remembered"});
    QCOMPARE(m_arguments, (QStringList{"dark blue", "2"}));
    QVERIFY(run("sink a b c d e").isOk());
    QCOMPARE(m_arguments, (QStringList{"a", "b", "c", "d", "e"}));
}

void TestConsole::nothingToRun_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << "";
    QTest::newRow("blanks") << "   ";
    QTest::newRow("comment") << "# paint blue";
}

void TestConsole::nothingToRun()
{
    QFETCH(QString, line);
    const ConsoleResult result = run(line);
    QVERIFY(result.isOk());
    QVERIFY(result.lines.isEmpty());
    QCOMPARE(m_ranOn, nullptr);
}

void TestConsole::wrongLines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::newRow("unknown command") << "dance"
                                     << "unknown command \"dance\"; \"help\" lists them";
    QTest::newRow("wrong case") << "Paint blue"
                                << "unknown command \"Paint\"; \"help\" lists them; near: paint";
    QTest::newRow("empty command") << "''"
                                   << "unknown command \"\"; \"help\" lists them";
    QTest::newRow("too long") << QString(65537, 'x') << "a command is longer than 65536 bytes";
    QTest::newRow("argument missing") << "paint"
                                      << "usage: paint COLOR [LAYERS] [BRUSH]";
    QTest::newRow("too many arguments") << "paint a b c d"
                                        << "usage: paint COLOR [LAYERS] [BRUSH]";
    QTest::newRow("none of several") << "sink"
                                     << "usage: sink WORD...";
    QTest::newRow("argument where none is") << "look there"
                                            << "usage: look";
    QTest::newRow("open quote") << "paint 'blue"
                                << "the quote at column 7 is not closed";
    QTest::newRow("open end") << "paint blue\\"
                              << "nothing follows the backslash at the end";
}

void TestConsole::wrongLines()
{
    QFETCH(QString, line);
    QTEST(run(line).error, "error");
    QCOMPARE(m_ranOn, nullptr);
}

void TestConsole::helpListsEveryCommand()
{
    QCOMPARE(
        run("help").lines.filter(QRegularExpression("^  ?\\w")),
        (QStringList{"  paint COLOR [LAYERS] [BRUSH]", "  sink WORD...              Sinks.",
                     "  look                      Looks.", "  help [COMMAND]            Helps."}));
}

void TestConsole::helpExplainsOneCommand()
{
    QCOMPARE(
        run("help paint").lines,
        (QStringList{"paint COLOR [LAYERS] [BRUSH]", "  Paints.", "For example: paint blue 2"}));
}

void TestConsole::helpRefusesUnknownCommands()
{
    QCOMPARE(run("help dance").error, QString("unknown command \"dance\"; \"help\" lists them"));
    QCOMPARE(run("help lok").error,
             QString("unknown command \"lok\"; \"help\" lists them; near: look"));
}

void TestConsole::runsWhereTheCommandBelongs_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("onGraphicalThread");
    QTest::newRow("any thread") << "paint blue" << false;
    QTest::newRow("graphical thread") << "look" << true;
}

void TestConsole::runsWhereTheCommandBelongs()
{
    QFETCH(QString, line);
    QFETCH(bool, onGraphicalThread);
    QVERIFY(runElsewhere(line).isOk());
    QVERIFY(m_ranOn != nullptr);
    QCOMPARE(m_ranOn == QThread::currentThread(), onGraphicalThread);
}

void TestConsole::closedConsoleRunsNoCommands()
{
    m_console->close();
    for (const char *line : {"look", "paint blue"}) {
        QCOMPARE(runElsewhere(line).error, QString("the unit is going down"));
    }
    QCOMPARE(m_ranOn, nullptr);
}

FACTORY_TEST_GUILESS_MAIN(TestConsole)
#include "tst_console.moc"
