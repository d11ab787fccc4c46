#include "headunittest.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QDir>
#include <QImage>
#include <QtTest>

/// The program "headunit" as it records sessions, and makes and takes reports.
class TestHeadunitSession : public QObject, private HeadunitTest
{
    Q_OBJECT

private slots:
    void init();

    void recordsFromTheStart();
    void fileThatCannotBeRecorded();
    void recordsWithinFastTime();
    void reportWhileTheScreenHangs();
    void reportWithoutTar();
    void folderThatIsNotEmpty();
    void missingReport();

private:
    QString file(const char *name) const { return m_folder->filePath(name); }
};

void TestHeadunitSession::init()
{
    makeFolder();
}

void TestHeadunitSession::recordsFromTheStart()
{
    const QString name = script("key FACTORY\nvisible count\ntap 30 140\nals 40\nals\n");
    const QString session = file("session.txt");
    const Outcome outcome =
        headunit(withTestActivity({"--unit", m_unit, "--record", session, "--script", name}));
    QCOMPARE(outcome.error.trimmed(), QString());
    QCOMPARE(outcome.status, 0);
    QStringList lines = QString::fromUtf8(readFile(session)).split('\n');
    QCOMPARE(lines.takeFirst(), QString("# headunit session 1"));
    QCOMPARE(lines.takeFirst(), QString("# headunit " VERSION ", speed 1"));
    static const QRegularExpression anyPause("^wait \\d+$");
    const QStringList pauses = lines.filter(anyPause);
    for (const QString &pause : pauses) {
        lines.removeAll(pause);
    }
    QCOMPARE(lines, (QStringList{"key FACTORY", "visible count", "press count", "als 40", ""}));
}

void TestHeadunitSession::fileThatCannotBeRecorded()
{
    const QString session = file("session.txt");
    writeFile(session, "precious");
    const Outcome outcome =
        headunit(withTestActivity({"--unit", m_unit, "--record", session, "--script", "-"}));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.error.trimmed(),
             "The session \"" + session + "\" cannot be recorded: File exists.");
    QCOMPARE(readFile(session), QByteArray("precious"));
}

/// A second of the host's is ten of the unit's.
void TestHeadunitSession::recordsWithinFastTime()
{
    const QString session = file("session.txt");
    const Outcome outcome =
        headunit(withTestActivity({"--unit", m_unit, "--speed", "10", "--record", session,
                                   "--script", script("als 1\nwait 5000\nals 2\n")}));
    QCOMPARE(outcome.status, 0);
    const QByteArray recorded = readFile(session);
    static const QRegularExpression pause("als 1\nwait (\\d+)\nals 2\n");
    const int ms = pause.match(QString::fromUtf8(recorded)).captured(1).toInt();
    QVERIFY2(ms >= 4900, recorded.constData());
}

void TestHeadunitSession::reportWhileTheScreenHangs()
{
    const QString report = file("a report.tar.xz");
    const QString session = file("session.txt");
    {
        const Program program(HEADUNIT, withTestActivity({"--unit", m_unit, "--record", session}));
        QVERIFY(waitForUnit());
        QCOMPARE(control({"key", "FACTORY"}).status, 0);
        QCOMPARE(control({"see", "test activity"}).status, 0);
        QCOMPARE(control({"press", "hang", "nowait"}).status, 0);
        QCOMPARE(control({"expect", "trace hanging"}).status, 0);
        const Outcome outcome = control({"report", report});
        QCOMPARE(outcome.error, QString());
        QCOMPARE(control({"report", report}).error,
                 "There is a file \"" + report + "\" already.\n");
    }
    QVERIFY(QDir().mkdir(file("unpacked")));
    QCOMPARE(run("tar", {"-xf", report, "-C", file("unpacked")}).status, 0);
    // What set it off is in the session, although it has not ended.
    QVERIFY(readFile(file("unpacked/report/session.txt")).contains("\npress hang\n"));
    QCOMPARE(QImage(file("unpacked/report/screen.png")).size(), QSize(800, 480));
    const QString checksum = run("sha256sum", {TEST_ACTIVITY}).output.section(' ', 0, 0);
    QCOMPARE(QString::fromUtf8(readFile(file("unpacked/report/versions.txt"))).split('\n'),
             (QStringList{"headunit report 1", "headunit " VERSION, "speed 1", "language en",
                          QString("Qt ") + qVersion(), "plug-in " TEST_ACTIVITY,
                          "plug-in's SHA-256 " + checksum, ""}));
}

void TestHeadunitSession::reportWithoutTar()
{
    QProcessEnvironment nowhere = QProcessEnvironment::systemEnvironment();
    nowhere.insert("PATH", "/nowhere");
    const QString report = file("report.tar.xz");
    const Outcome outcome = run(HEADUNIT,
                                withTestActivity({"--unit", m_unit, "--script",
                                                  script("report " + report.toUtf8() + '\n')}),
                                nowhere);
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.error.trimmed().contains("the packages tar and xz-utils have what reports are "
                                              "packed with"),
             qPrintable(outcome.error));
    QVERIFY(!QFile::exists(report));
}

void TestHeadunitSession::folderThatIsNotEmpty()
{
    writeFile(m_unit + "/settings.ini", "precious");
    const Outcome outcome =
        headunit(withTestActivity({"--unit", m_unit, "--from", file("report.tar.xz")}));
    QCOMPARE(outcome.status, 4);
    QCOMPARE(outcome.error,
             "The unit's folder \"" + m_unit
                 + "\" is not empty; a report is unpacked into an empty or a new one.\n");
    QCOMPARE(QDir(m_unit).entryList(QDir::Files), QStringList("settings.ini"));
    QCOMPARE(readFile(m_unit + "/settings.ini"), QByteArray("precious"));
}

void TestHeadunitSession::missingReport()
{
    const QString report = file("report.tar.xz");
    const Outcome outcome = headunit(withTestActivity({"--unit", m_unit, "--from", report}));
    QCOMPARE(outcome.status, 4);
    const QString begin = "The report \"" + report + "\" cannot be unpacked into \"" + m_unit
        + "\": tar --list failed: ";
    QVERIFY2(outcome.error.startsWith(begin), qPrintable(outcome.error));
    QVERIFY(!QFile::exists(m_unit));
}

FACTORY_TEST_GUILESS_MAIN(TestHeadunitSession)
#include "tst_headunit_session.moc"
