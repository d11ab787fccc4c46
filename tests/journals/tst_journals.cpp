#include "furnishing.h"
#include "listreference.h"

#include "scenarios/headunitrun.h"
#include "support/testmain.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
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

/// Without what differs from run to run, or with every change of a source: times and numbers of
/// causes, the lines of trace lines, how much of an answer a read finds.
QString plain(QString line)
{
    static const QRegularExpression time(QStringLiteral("^[0-9.]+ #(\\d+|\\?) "));
    static const QRegularExpression traceHead(
        QStringLiteral("^trace \\[Info\\] \\[FactoryDebug\\] \\[ (\\S+) : \\d+ \\]  "));
    static const QRegularExpression duration(QStringLiteral("^(gate .*) <[0-9.]+>$"));
    return line.remove(time)
        .replace(traceHead, QStringLiteral("trace \\1: "))
        .replace(duration, QStringLiteral("\\1"));
}

/// What devices on other threads say at a time of their own, how often a wait for them ends, and
/// how long that took.
bool isOfAnotherThread(const QString &line)
{
    static const QRegularExpression other(QStringLiteral(
        "^(receiver |stall |threads end|gate select|dab (tells|update (ok|failed))|# )"));
    return other.match(line).hasMatch();
}

/// What lists say and ask while they are painted.
bool isOfPainting(const QString &line, bool isBehindPainting)
{
    static const QRegularExpression painting(QStringLiteral(
        "^trace "
        "(usbtestmodel|usbtestdelegate|vendordatamodel|vendordatadelegate|lvscrollbar)\\.cpp"));
    return painting.match(line).hasMatch()
        || (isBehindPainting && line.startsWith(QLatin1String("asked Data")));
}

/// With a mark in front: "#12", or "#?".
QString causeOf(const QString &line)
{
    return line.section(QLatin1Char(' '), 1, 1);
}

/// The lines that are to be the same in every run. What nobody knows the cause of has a mark; but
/// for what the window system paints, or the console reads, as often as it sees fit.
QStringList plainJournal(const QString &text)
{
    const QString unknown = QStringLiteral("#?");
    QSet<QString> looks = {unknown};
    QStringList lines;
    bool isPainting = false;
    bool hasWorker = false; // which runs beside the rest of the touch that has started it
    const QStringList all = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &one : all) {
        const QString line = plain(one);
        isPainting = isOfPainting(line, isPainting);
        hasWorker = line.startsWith(QLatin1String("threads start"))
            || (hasWorker && !line.startsWith(QLatin1String("touch press")));
        const bool isLeftOut = hasWorker && line == QLatin1String("touch handled");
        if (line.startsWith(QLatin1String("console "))) {
            looks.insert(causeOf(one));
        }
        // Qt asks for the number of rows again and again.
        const bool isAgain = isPainting && lines.value(lines.size() - 1) == line;
        const bool isPainted = isAgain || (isPainting && looks.contains(causeOf(one)));
        if (!isPainted && !isLeftOut && !isOfAnotherThread(line)) {
            const bool isUnknown = causeOf(one) == unknown;
            lines.append(isUnknown ? QStringLiteral("from something unknown: ") + line : line);
        }
    }
    return lines;
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
    QVERIFY(furnish(run));
    RUN_SCENARIO(run, sessions().filePath(name + QStringLiteral(".script")), speed);
    const QByteArray journal = run.read(QStringLiteral("/journal.log"));
    const QString complaint = listComplaint(name, plainJournal(QString::fromUtf8(journal)));
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

FACTORY_TEST_GUILESS_MAIN(TestJournals)
#include "tst_journals.moc"
