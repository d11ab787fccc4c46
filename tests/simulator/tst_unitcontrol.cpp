#include "headunittest.h"

#include "support/testmain.h"

#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

/// The program "headunit-ctl" without a command, and what bash offers behind it.
class TestUnitControl : public QObject, private HeadunitTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void runsStandardInputToItsEnd();
    void stopsAtTheFirstThatFails();
    void stopsAtQuit();
    void promptsOnATerminal();
    void completesOnATerminal();
    void recallsWhatWasTyped();
    void bashCompletes_data();
    void bashCompletes();

private:
    Outcome controlWith(const QByteArray &input) const;

    QScopedPointer<Program> m_program;
};

namespace
{

const char *const upKey = "\x10"; // Ctrl+P

/// headunit-ctl on a terminal of its own.
class Terminal
{
public:
    Terminal(const QString &unit, const QString &data)
        : m_master(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
        if (grantpt(m_master) != 0 || unlockpt(m_master) != 0) {
            qFatal("no terminal");
        }
        const QString slave = QString::fromLocal8Bit(ptsname(m_master));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TERM", "dumb");
        environment.insert("XDG_DATA_HOME", data);
        m_process.setProcessEnvironment(environment);
        m_process.setStandardInputFile(slave);
        m_process.setStandardOutputFile(slave);
        m_process.setStandardErrorFile(slave);
        m_process.start(HEADUNIT_CTL, {"--unit", unit});
    }

    ~Terminal()
    {
        m_process.kill();
        m_process.waitForFinished();
        close(m_master);
    }

    /// Types a line; whether that is shown afterwards.
    bool shows(const QByteArray &typed, const QByteArray &text)
    {
        m_shown.clear();
        if (write(m_master, typed.constData(), size_t(typed.size())) != typed.size()) {
            return false;
        }
        return QTest::qWaitFor(
            [&] {
                char bytes[4096];
                const ssize_t count = read(m_master, bytes, sizeof bytes);
                m_shown.append(bytes, int(qMax<ssize_t>(0, count)));
                return m_shown.contains(text);
            },
            30000);
    }

    QByteArray shown() const { return m_shown; }

    /// Leaves by Ctrl+D, which counts only while a line is read.
    int leave()
    {
        for (int time = 0; time < 300 && !m_process.waitForFinished(100); ++time) {
            shows("\x04", QByteArray());
        }
        return m_process.state() == QProcess::NotRunning ? m_process.exitCode() : -1;
    }

private:
    QProcess m_process;
    const int m_master;
    QByteArray m_shown;
};

} // namespace

void TestUnitControl::init()
{
    makeFolder();
    m_program.reset(new Program(HEADUNIT, withTestActivity({"--unit", m_unit})));
    QVERIFY(waitForUnit());
}

void TestUnitControl::cleanup()
{
    control({"quit"});
    m_program.reset();
}

Outcome TestUnitControl::controlWith(const QByteArray &input) const
{
    Program program(HEADUNIT_CTL, {"--unit", m_unit});
    program.type(input);
    return program.finish();
}

void TestUnitControl::runsStandardInputToItsEnd()
{
    const Outcome outcome =
        controlWith("# a comment\n\nset key 'two words'\nsetting $key 5\nsetting \"$key\"");
    QCOMPARE(outcome.error, QString());
    QCOMPARE(outcome.output, QString("5\n"));
    QCOMPARE(outcome.status, 0);
}

void TestUnitControl::stopsAtTheFirstThatFails()
{
    const Outcome outcome = controlWith("setting a 1\n\nabsent 'settings a'\nsetting a 2\n");
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.error, QString("settings a = 1\n<stdin>:3: the journal has \"settings a\"\n"));
    QCOMPARE(control({"setting", "a"}).output, QString("1\n"));
}

void TestUnitControl::stopsAtQuit()
{
    const Outcome outcome = controlWith("quit\nsetting a 2\n");
    QCOMPARE(outcome.error, QString());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(m_program->finish().status, 0);
}

void TestUnitControl::promptsOnATerminal()
{
    Terminal terminal(m_unit, m_folder->path());
    QVERIFY(terminal.shows("", "Ctrl+D leaves"));
    QVERIFY(terminal.shows("setting a 5\n", "unit> "));
    QVERIFY(terminal.shows("press idNone\n", "there is no button \"idNone\" on the screen"));
    QVERIFY(terminal.shows("setting a\n", "5\r\n"));
    QCOMPARE(terminal.leave(), 0);
    // Who leaves does not end the unit.
    QCOMPARE(control({"setting", "a"}).output, QString("5\n"));
}

void TestUnitControl::completesOnATerminal()
{
    QCOMPARE(control({"key", "FACTORY"}).status, 0);
    QCOMPARE(control({"see", "test activity"}).status, 0);
    Terminal terminal(m_unit, m_folder->path());
    QVERIFY(terminal.shows("", "unit> "));
    QVERIFY(terminal.shows("pre\tcou\t\n", "unit> "));
    QCOMPARE(control({"see", "presses: 1"}).status, 0);
}

void TestUnitControl::recallsWhatWasTyped()
{
    for (const QByteArray &lines :
         {QByteArray("setting a 7\nsetting a\n"), QByteArray(upKey) + '\n'}) {
        Terminal terminal(m_unit, m_folder->path());
        QVERIFY(terminal.shows("", "unit> "));
        QVERIFY2(terminal.shows(lines, "7\r\n"), terminal.shown());
        QCOMPARE(terminal.leave(), 0);
    }
}

void TestUnitControl::bashCompletes_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("completions");
    QTest::newRow("verb") << "headunit-ctl rebo"
                          << "reboot";
    QTest::newRow("verbs behind an option") << "headunit-ctl --unit UNIT shot-"
                                            << "shot-anew shot-window";
    QTest::newRow("all buttons") << "headunit-ctl --unit UNIT press ''"
                                 << "block count hang page restart";
    QTest::newRow("button") << "headunit-ctl --unit UNIT press re"
                            << "restart";
    QTest::newRow("button without a unit") << "headunit-ctl --unit /dev/null press re"
                                           << "";
    QTest::newRow("option") << "headunit-ctl --u"
                            << "--unit";
    QTest::newRow("folder") << "headunit-ctl --unit UNIT/me"
                            << "UNIT/media";
}

void TestUnitControl::bashCompletes()
{
    QCOMPARE(control({"key", "FACTORY"}).status, 0);
    QCOMPARE(control({"see", "test activity"}).status, 0);
    QFETCH(QString, words);
    QFETCH(QString, completions);
    words.replace("UNIT", m_unit);
    completions.replace("UNIT", m_unit);
    const QString script = QString("PATH=%1:$PATH; . %2; COMP_WORDS=(%3); "
                                   "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _headunit_ctl; "
                                   "echo -n \"${COMPREPLY[*]}\"")
                               .arg(QFileInfo(HEADUNIT_CTL).path(), BASH_COMPLETION, words);
    const Outcome outcome = run("bash", {"-c", script});
    QCOMPARE(outcome.error, QString());
    QCOMPARE(outcome.output, completions);
}

FACTORY_TEST_GUILESS_MAIN(TestUnitControl)
#include "tst_unitcontrol.moc"
