#include "headunitrun.h"
#include "mousedisplay.h"
#include "plainjournal.h"

#include "simulator/program.h"
#include "support/firstdifference.h"
#include "support/testmain.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QtTest>

#include <sys/stat.h>

/// Sessions that are recorded and replayed, and reports that are gone on from.
class TestSession : public QObject
{
    Q_OBJECT

private slots:
    void mouseIsRecordedAndReplayed_data();
    void mouseIsRecordedAndReplayed();
    void recordedScripts_data();
    void recordedScripts();
    void reportIsGoneOnFrom();
};

namespace
{

QByteArray read(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What a replay leads to like the session itself. Left out of touches is where they were: a tap on
/// a button is replayed in its middle. Left out whole are moves, since a mouse also moves when it
/// is not down; "handled", which a mouse leads to on a hard key too; and what the console was told.
QStringList replayable(const QString &journalFile)
{
    static const QRegularExpression place(QStringLiteral("^(touch (press|release)) \\d+ \\d+$"));
    static const QRegularExpression leftOut(
        QStringLiteral("^(console |(from something unknown: )?touch move |touch handled$)"));
    QStringList lines;
    const QStringList all = plainJournal(QString::fromUtf8(read(journalFile)));
    for (QString line : all) {
        if (!leftOut.match(line).hasMatch()) {
            lines.append(line.replace(place, QStringLiteral("\\1")));
        }
    }
    return lines;
}

/// A unit with a window on a display of its own.
class ShownUnit
{
public:
    ShownUnit(const QString &folder, const QString &recordTo, const QString &scale)
        : m_folder(folder)
        , m_isThere(m_display.start(scale.toDouble()))
        , m_program(QStringLiteral(HEADUNIT),
                    {QStringLiteral("--unit"), folder, QStringLiteral("--record"), recordTo,
                     QStringLiteral("--scale"), scale},
                    m_display.environment())
    {
        m_isThere = m_isThere && m_display.findWindow()
            && QTest::qWaitFor([this] { return tell({QStringLiteral("mark")}); }, 60000);
    }

    bool isThere() const { return m_isThere; }
    bool touch(const QStringList &actions) { return m_display.touch(actions); }

    /// A command of the console; whether it went well.
    bool tell(const QStringList &command) const
    {
        return ::run(QStringLiteral(HEADUNIT_CTL),
                     QStringList{QStringLiteral("--unit"), m_folder} + command)
                   .status
            == 0;
    }
    bool expect(const char *line) const
    {
        return tell({QStringLiteral("expect"), QString::fromLatin1(line), QStringLiteral("60000")});
    }

    int quit() { return tell({QStringLiteral("quit")}) ? m_program.finish().status : -1; }

private:
    const QString m_folder;
    MouseDisplay m_display;
    bool m_isThere;
    Program m_program;
};

/// A stick is plugged and pulled by touch; a picture of the screen does not tell the window's size.
void useTheSlots(ShownUnit &unit, const QString &pictures)
{
    QVERIFY(unit.touch({"click 75 430"}));
    QVERIFY(unit.expect("storage plug usb0 /media/usb0"));
    QVERIFY(unit.touch({"click 700 370"}));
    QVERIFY(unit.expect("storage plug sd1 /media/sd1"));
    QVERIFY(unit.touch({"click 205 360"}));
    QVERIFY(unit.expect("storage pull usb0 /media/usb0"));
    const QString shown = pictures + "/shown.png";
    QVERIFY(unit.tell({"shot-anew", pictures + "/anew.png"}));
    const QImage anew(pictures + "/anew.png");
    QCOMPARE(anew.size(), QSize(800, 480));
    QVERIFY(QTest::qWaitFor(
        [&] {
            return unit.tell({"shot", shown}) && QImage(shown) == anew;
        },
        60000));
}

/// A person at the unit: a list that is chosen from and dragged; a button that is tapped beside its
/// middle, twice in a row, by a hand that shakes, for long, and left before the finger is lifted.
void useTheUnit(ShownUnit &unit)
{
    QVERIFY(unit.touch({"click 480 530"})); // FACTORY
    QVERIFY(unit.expect("framework started factorydebug"));
    QVERIFY(unit.tell({"visible", "usbtest"}));
    QVERIFY(unit.tell({"press", "usbtest"}));
    QVERIFY(unit.tell({"see", "USB0 BC Mode"}));
    QVERIFY(unit.touch({"click 200 107"}));
    QVERIFY(unit.tell({"see", "USB0 BC Model"}));
    QVERIFY(unit.touch({"click 200 190"}));
    QVERIFY(unit.expect("usb port 0 DCP"));
    QVERIFY(unit.touch({"down 200 300", "move 201 250", "move 205 190", "up"}));
    QVERIFY(unit.touch({"click 40 33"})); // return, to the first list and to the menu
    QVERIFY(unit.tell({"see", "USB Test"}));
    QVERIFY(unit.touch({"click 40 33"}));
    QVERIFY(unit.tell({"visible", "idCapture"}));
    QVERIFY(unit.touch({"click 640 350"}));
    QVERIFY(unit.expect("settings system/capture = true"));
    QVERIFY(unit.touch({"click 629 359", "sleep 0.05", "click 629 359"}));
    QVERIFY(unit.expect("settings system/capture = false"));
    QVERIFY(unit.expect("settings system/capture = true"));
    QVERIFY(unit.touch({"down 629 359", "move 632 360", "move 631 361", "up"}));
    QVERIFY(unit.expect("settings system/capture = false"));
    QVERIFY(unit.tell({"visible", "idCapture"})); // answered when all of that is done
    QVERIFY(unit.tell({"als", "300"}));
    QVERIFY(unit.touch({"down 629 359", "sleep 1.3", "up"}));
    QVERIFY(unit.expect("settings system/capture = true"));
    QVERIFY(unit.touch({"down 629 359", "move 900 359", "up", "click 1 1"}));
    QVERIFY(unit.expect("touch press 1 1"));
    QVERIFY(unit.touch({"click 330 530"})); // HOME
    QVERIFY(unit.expect("framework closed factorydebug"));
}

} // namespace

void TestSession::mouseIsRecordedAndReplayed_data()
{
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QStringList>("speeds");
    QTest::newRow("1") << "1" << QStringList{"1", "5"};
    QTest::newRow("0.5") << "0.5" << QStringList{"5"};
    QTest::newRow("1.5") << "1.5" << QStringList{"5"};
    QTest::newRow("2") << "2" << QStringList{"5"};
}

void TestSession::mouseIsRecordedAndReplayed()
{
    QFETCH(QString, scale);
    QFETCH(QStringList, speeds);
    if (!MouseDisplay::isInstalled()) {
        QSKIP("Xvfb is missing; the Debian package xvfb has it.");
    }
    const QTemporaryDir folder;
    const QString session = folder.filePath("session.txt");
    const QString used = folder.filePath("unit");
    {
        ShownUnit unit(used, session, scale);
        QVERIFY(unit.isThere());
        useTheSlots(unit, folder.path());
        useTheUnit(unit);
        QCOMPARE(unit.quit(), 0);
    }
    const QStringList journal = replayable(used + "/journal.log");
    QVERIFY(read(session).contains("\npress usb0\n"));
    for (const QString &speed : qAsConst(speeds)) {
        const HeadunitRun again;
        const HeadunitRun::End end = again.start({"--speed", speed, "--script", session});
        QVERIFY2(end.status == 0, qPrintable(end.error.right(1200) + read(session)));
        QCOMPARE(firstDifference(replayable(again.path("/journal.log")), journal), QString());
    }
}

void TestSession::recordedScripts_data()
{
    QTest::addColumn<QString>("script");
    const QDir scripts(HeadunitRun::script(QString()), QStringLiteral("recorded-*.txt"));
    const QStringList names = scripts.entryList();
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void TestSession::recordedScripts()
{
    QFETCH(QString, script);
    HeadunitRun run;
    RUN_SCENARIO(run, script, 5);
}

void TestSession::reportIsGoneOnFrom()
{
    const QTemporaryDir folder;
    const QString unit = folder.filePath("unit");
    const QString other = folder.filePath("other/unit");
    const QString report = folder.filePath("report.tar.xz");
    const QString session = folder.filePath("session.txt");
    const auto tell = [&unit](const QStringList &command) {
        return run(HEADUNIT_CTL, QStringList{"--unit", unit} + command).status == 0;
    };
    QByteArray recorded;
    {
        const Program program(HEADUNIT, {"--headless", "--unit", unit, "--record", session});
        QVERIFY(QTest::qWaitFor([&] { return tell({"mark"}); }, 60000));
        const QStringList commands{"key FACTORY", "visible idCapture", "press idCapture",
                                   "plug usb0",   "plug sd1",          "memory phySwing 12345678",
                                   "dab 9",       "panel hue 7",       "version dabSdk 5.55"};
        for (const QString &command : commands) {
            QVERIFY2(tell(command.split(' ')), qPrintable(command));
        }
        QVERIFY(tell({"report", report}));
        recorded = read(session);
        // The end comes at once, so that the folder stays as it was packed.
    }
    QFile probe(folder.filePath("probe.txt"));
    QVERIFY(probe.open(QIODevice::WriteOnly));
    probe.write("setting system/capture\nmemory\npanel\nversion\nvendor 3\nusb\n"
                "key FACTORY\nvisible idCapture\npress idCapture\npull usb0\n");
    probe.close();
    const QStringList goOn{"--headless", "--script", probe.fileName(), "--unit"};
    const Outcome here = run(HEADUNIT, goOn + QStringList{unit});
    const Outcome there = run(HEADUNIT, goOn + QStringList{other, "--from", report});
    QCOMPARE(here.status, 0);
    QCOMPARE(there.error, here.error);
    QCOMPARE(there.output, here.output);
    QVERIFY2(there.output.startsWith("  true\n"), qPrintable(there.output));
    QVERIFY2(there.output.contains("phySwing 12345678"), qPrintable(there.output));
    QCOMPARE(firstDifference(plainJournal(read(other + "/journal.log")),
                             plainJournal(read(unit + "/journal.log"))),
             QString());
    QCOMPARE(read(other + "/settings.ini"), read(unit + "/settings.ini"));
    QCOMPARE(read(other + "/report/session.txt"), recorded);
    // Four gigabytes in some kilobytes, in the report and on the disk.
    QCOMPARE(QFileInfo(other + "/dev/mem").size(), qint64(1) << 32);
    QVERIFY(QFileInfo(report).size() < 500000);
    struct stat64 memory = {};
    QCOMPARE(stat64(QFile::encodeName(other + "/dev/mem").constData(), &memory), 0);
    QVERIFY(memory.st_blocks < 10000);
}

FACTORY_TEST_GUILESS_MAIN(TestSession)
#include "tst_session.moc"
