#include "simulator/session/sessionrecorder.h"

#include "testsimulator.h"

#include "simulator/console/commandline.h"
#include "simulator/window/hardkey.h"
#include "simulator/window/screen.h"
#include "support/fulldisk.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QRegularExpression>
#include <QThread>
#include <QtTest>
#include <QWindow>

using namespace simulator;

/// The test activity's buttons lie at x 20 to 220: "count" at y 100 to 150, "block" at 160 to 210.
class TestSessionRecorder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void mouse_data();
    void mouse();
    void longTouchStaysLong();
    void handlingIsNoPause();
    void pauseEndsWithThePress();
    void commandsDuringATouch();
    void commandsDuringWhatATouchSetsOff();
    void commands_data();
    void commands();
    void commandsThatOnlyAskOrFail();
    void keys();
    void isThereAtOnce();
    void startAndStop();
    void fullDiskEndsIt();

private:
    void mouse(const QString &actions);
    QString recorded() const;
    int pauseAhead(const QString &line) const;

    QScopedPointer<TestSimulator> m_unit;
    QString m_name;
};

void TestSessionRecorder::init()
{
    m_unit.reset(new TestSimulator);
    m_unit->openActivity();
    m_name = m_unit->path("/session.txt");
    QCOMPARE(m_unit->errorOf("record " + m_name), QString());
}

void TestSessionRecorder::cleanup()
{
    m_unit.reset();
}

/// Events as the window system sends them: "down 10 20", "move 10 30", "up 10 30".
void TestSessionRecorder::mouse(const QString &actions)
{
    Bezel &bezel = m_unit->simulator().bezel();
    QWindow *window = bezel.windowHandle();
    const QStringList all = actions.split(", ");
    for (const QString &action : all) {
        const QStringList words = action.split(' ');
        const QPoint place =
            QPoint(words.at(1).toInt(), words.at(2).toInt()) + bezel.screenRect().topLeft();
        if (words.first() == "down") {
            QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, place);
        } else if (words.first() == "right") {
            QTest::mouseClick(window, Qt::RightButton, Qt::NoModifier, place);
        } else if (words.first() == "move") {
            QTest::mouseMove(window, place);
        } else {
            QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, place);
        }
    }
}

/// What is in the file, but for its head and times, as one line.
QString TestSessionRecorder::recorded() const
{
    QStringList lines = QString::fromUtf8(readFile(m_name)).split('\n', Qt::SkipEmptyParts);
    QStringList kept;
    for (const QString &line : qAsConst(lines)) {
        if (!line.startsWith('#') && !line.startsWith("wait ") && !line.startsWith("visible ")) {
            kept.append(line);
        }
    }
    return kept.join(", ");
}

/// The milliseconds that are waited for ahead of that line; 0 for none.
int TestSessionRecorder::pauseAhead(const QString &line) const
{
    const QRegularExpression pause("wait (\\d+)\\n(visible .*\\n)?" + line + '\n');
    return pause.match(QString::fromUtf8(readFile(m_name))).captured(1).toInt();
}

void TestSessionRecorder::mouse_data()
{
    QTest::addColumn<QString>("actions");
    QTest::addColumn<QString>("recorded");
    QTest::newRow("a button, beside its middle") << "down 30 140, up 30 140"
                                                 << "press count";
    QTest::newRow("twice") << "down 30 140, up 30 140, down 30 140, up 30 140"
                           << "press count, press count";
    QTest::newRow("with a shaking hand") << "down 30 140, move 31 139, up 31 139"
                                         << "press count";
    QTest::newRow("beside it") << "down 30 155, up 30 155"
                               << "tap 30 155";
    QTest::newRow("off it") << "down 30 140, move 40 155, move 41 155, up 41 155"
                            << "hold 30 140, hold 40 155, hold 41 155, lift";
    QTest::newRow("in equal steps") << "down 400 100, move 400 200, move 400 300, up 400 300"
                                    << "drag 400 100 400 300 2";
    QTest::newRow("off the glass") << "down 790 10, move 830 10, move 835 10, up 835 10"
                                   << "hold 790 10, hold 830 10, hold 835 10, lift";
    QTest::newRow("from outside") << "down -10 10, move 400 10, up 400 10"
                                  << "";
    QTest::newRow("only above it") << "move 30 140, move 35 140"
                                   << "";
    QTest::newRow("another button of the mouse") << "right 30 140"
                                                 << "";
}

void TestSessionRecorder::mouse()
{
    QFETCH(QString, actions);
    mouse(actions);
    QTEST(recorded(), "recorded");
}

void TestSessionRecorder::longTouchStaysLong()
{
    mouse("down 30 140");
    QTest::qWait(1200);
    mouse("up 30 140");
    QCOMPARE(recorded(), QString("hold 30 140, lift"));
    QVERIFY2(pauseAhead("lift") >= 1100, readFile(m_name).constData());
}

/// A command that is waited for takes its time in the replay too.
void TestSessionRecorder::handlingIsNoPause()
{
    mouse("down 30 180, up 30 180"); // blocks for three seconds
    QCOMPARE(m_unit->errorOf("als 300"), QString());
    QCOMPARE(recorded(), QString("press block, als 300"));
    QVERIFY2(pauseAhead("als 300") < 2500, readFile(m_name).constData());
}

void TestSessionRecorder::pauseEndsWithThePress()
{
    mouse("down 30 140, up 30 140");
    QTest::qWait(700);
    mouse("move 400 140, down 400 140, up 400 140");
    QVERIFY2(pauseAhead("tap 400 140") >= 600, readFile(m_name).constData());
}

void TestSessionRecorder::commandsDuringATouch()
{
    mouse("down 30 140");
    QCOMPARE(m_unit->errorOf("als 300"), QString());
    mouse("up 30 140");
    QCOMPARE(recorded(), QString("hold 30 140, als 300, lift"));
}

void TestSessionRecorder::commandsDuringWhatATouchSetsOff()
{
    hardware::JournalReader reader(m_unit->journal());
    const QScopedPointer<QThread> other(QThread::create([this, &reader] {
        ConsoleSession session(reader);
        m_unit->console().run("expect \"trace blocking\" 20000", session);
        QThread::msleep(200);
        m_unit->console().run("als 300", session);
    }));
    other->start();
    mouse("down 30 180, up 30 180");
    QVERIFY(other->wait());
    mouse("down 30 140, up 30 140");
    QCOMPARE(recorded(), QString("press block nowait, als 300, press count"));
}

void TestSessionRecorder::commands_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("recorded");
    const auto row = [](const char *line, const char *recorded = nullptr) {
        QTest::newRow(line) << line << (recorded == nullptr ? line : recorded);
    };
    row("press count");
    row("press count nowait", "press count");
    row("tap 120 125", "press count");
    row("tap 400 300");
    row("drag 400 100 400 300", "drag 400 100 400 300 10");
    row("drag 400 100 402 300 7");
    row("key HOME");
    row("als 300");
    row("als-curve 0");
    row("panel hue 7");
    row("setting a \"b c\"");
    row("memory phySwing 12345678");
    row("memory-fill A5A5A5A5");
    row("daynight night 90");
    row("vendor 3 07");
    row("usb 0 DCP");
    row("dab 9");
    row("version gps 5.55");
    row("plug usb0");
    row("reboot");
    row("power-cut");
    row("factory-reset");
    row("wire on");
    row("fault memory missing");
    row("fault receiver nak 3 5");
    row("fault call \"system sync\" 2");
    row("fault storage full usb0");
    row("full usb1 off");
    row("write-protect usb0 on");
    row("slow usb0 100000");
    row("fault none");
    row("repeat 2 \"als 5\"", "als 5, als 5");
}

void TestSessionRecorder::commands()
{
    QFETCH(QString, line);
    m_unit->run(line);
    QCoreApplication::processEvents();
    QTEST(recorded(), "recorded");
}

void TestSessionRecorder::commandsThatOnlyAskOrFail()
{
    for (const char *line : {"als",
                             "panel",
                             "setting none",
                             "setting",
                             "memory",
                             "memory phySwing",
                             "dab",
                             "version",
                             "version gps",
                             "receiver",
                             "receiver faults",
                             "fail",
                             "fail calls",
                             "usb",
                             "phy",
                             "ncm",
                             "vendor 3",
                             "keylight",
                             "help",
                             "journal",
                             "mark",
                             "see test",
                             "wait 1",
                             "als many",
                             "pull usb0",
                             "press none",
                             "lift",
                             "plug none"}) {
        m_unit->run(line);
    }
    QCOMPARE(recorded(), QString());
    // A folder of the one who plugs it.
    QVERIFY(QDir().mkpath(m_unit->path("/a stick")));
    QCOMPARE(m_unit->errorOf("cd " + m_unit->path("")), QString());
    QCOMPARE(m_unit->errorOf("plug usb1 \"a stick\""), QString());
    QCOMPARE(recorded(), commandline::join({"plug", "usb1", m_unit->path("/a stick")}));
}

void TestSessionRecorder::keys()
{
    HardKey &home = m_unit->simulator().bezel().homeKey();
    QTest::mouseClick(&home, Qt::LeftButton);
    QCOMPARE(recorded(), QString("key HOME"));
    m_unit->simulator().bezel().screen().setBooting(true);
    QTest::mouseClick(&home, Qt::LeftButton);
    QCOMPARE(recorded(), QString("key HOME"));
}

void TestSessionRecorder::isThereAtOnce()
{
    mouse("down 30 140");
    QCOMPARE(recorded(), QString("hold 30 140"));
    mouse("up 30 140");
    QCOMPARE(recorded(), QString("press count"));
}

void TestSessionRecorder::startAndStop()
{
    QCOMPARE(m_unit->run("record").lines, QStringList(m_name));
    QCOMPARE(m_unit->errorOf("record other.txt"),
             "A session is being recorded already, in \"" + m_name + "\".");
    QCOMPARE(m_unit->errorOf("record stop"), QString());
    const QByteArray before = readFile(m_name);
    mouse("down 30 140, up 30 140");
    m_unit->run("als 300");
    QCOMPARE(readFile(m_name), before);
    QCOMPARE(m_unit->run("record").lines, QStringList("nothing"));
    QCOMPARE(m_unit->errorOf("record stop"), QString("No session is being recorded."));
    QCOMPARE(m_unit->errorOf("record /nowhere/session.txt"),
             QString("The session \"/nowhere/session.txt\" cannot be recorded: "
                     "No such file or directory."));
    QCOMPARE(m_unit->errorOf("record " + m_name),
             "The session \"" + m_name + "\" cannot be recorded: File exists.");
    QVERIFY(!m_unit->journal().hasFailedWrites());
}

void TestSessionRecorder::fullDiskEndsIt()
{
    m_unit->run("als 300");
    const QByteArray before = readFile(m_name);
    {
        const FullDisk full(rlim_t(before.size()) + 3);
        m_unit->run("als 400");
    }
    m_unit->run("als 500");
    QCOMPARE(readFile(m_name), before);
    QVERIFY(m_unit->journal().hasFailedWrites());
    QCOMPARE(m_unit->journal().lines("session.txt"),
             QStringList("unit cannot write " + m_name + ": File too large"));
    QCOMPARE(m_unit->errorOf("record stop"),
             QString("No session is being recorded; the last one ended early: File too large."));
}

FACTORY_TEST_MAIN(TestSessionRecorder)
#include "tst_sessionrecorder.moc"
