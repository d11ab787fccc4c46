#include "headunittest.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QtTest>

/// The program "headunit" as it records sessions.
class TestHeadunitSession : public QObject, private HeadunitTest
{
    Q_OBJECT

private slots:
    void init();

    void recordsFromTheStart();
    void fileThatCannotBeRecorded();
    void recordsWithinFastTime();

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
    for (const QString &pause : lines.filter(QRegularExpression("^wait \\d+$"))) {
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
    const QRegularExpression pause("als 1\nwait (\\d+)\nals 2\n");
    const int ms = pause.match(QString::fromUtf8(recorded)).captured(1).toInt();
    QVERIFY2(ms >= 4900, recorded.constData());
}

FACTORY_TEST_GUILESS_MAIN(TestHeadunitSession)
#include "tst_headunit_session.moc"
