#include "furnishing.h"
#include "listreference.h"

#include "scenarios/headunitrun.h"
#include "scenarios/plainjournal.h"
#include "support/testmain.h"

#include <QDir>
#include <QtTest>

/// All that happens, in its order, when a page is built, each of its buttons is pressed, and it is
/// left: touches, traces, calls told and asked, waits and commands. "./test --accept-journals"
/// renews the references.
class TestJournals : public QObject
{
    Q_OBJECT

private slots:
    void everyJournalBelongsToASession();
    void session_data();
    void session();
};

namespace
{

const double speed = 5;

QDir sessions()
{
    return QDir(QStringLiteral(REFERENCES));
}

} // namespace

void TestJournals::everyJournalBelongsToASession()
{
    QStringList names = sessions().entryList({QStringLiteral("*.txt")});
    // The other lists beside them.
    names.removeAll(QStringLiteral("CMakeLists.txt"));
    names.removeAll(QStringLiteral("texts.txt"));
    names.removeAll(QStringLiteral("widgetcalls.txt"));
    for (const QString &name : names) {
        const QString script = QFileInfo(name).completeBaseName() + QStringLiteral(".script");
        QVERIFY2(sessions().exists(script), qPrintable(name));
    }
}

void TestJournals::session_data()
{
    QTest::addColumn<QString>("name");
    const QStringList scripts = sessions().entryList({QStringLiteral("*.script")});
    QVERIFY(!scripts.isEmpty());
    for (const QString &script : scripts) {
        const QString name = QFileInfo(script).completeBaseName();
        QTest::newRow(qPrintable(name)) << name;
    }
}

void TestJournals::session()
{
    QFETCH(QString, name);
    HeadunitRun run;
    furnish(run);
    RUN_SCENARIO(run, sessions().filePath(name + QStringLiteral(".script")), speed);
    const QByteArray journal = run.read(QStringLiteral("/journal.log"));
    const QString complaint = listComplaint(name, plainJournal(QString::fromUtf8(journal)));
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

FACTORY_TEST_GUILESS_MAIN(TestJournals)
#include "tst_journals.moc"
