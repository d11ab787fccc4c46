#include "headunitrun.h"

#include "support/testmain.h"
#include "support/updatepackages.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

/// All that happens, in its order, when a page is built, each of its buttons is pressed, and it is
/// left: touches, traces, calls told and asked, waits and commands. The sessions and their journals
/// lie in tests/journals; FACTORYDEBUG_ACCEPT=journals in the environment writes the journals anew.
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

QDir journals()
{
    return QDir(QStringLiteral(JOURNALS));
}

QString readText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void writeText(const QString &path, const QStringList &lines)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(file.errorString()));
    file.write(lines.join(QLatin1Char('\n')).toUtf8() + '\n');
}

/// Without what differs from run to run, or with every change of a source: times, the lines of
/// trace lines, how much of an answer a read finds.
QString plain(QString line)
{
    static const QRegularExpression time(QStringLiteral("^[0-9.]+ "));
    static const QRegularExpression traceHead(
        QStringLiteral("^trace \\[Info\\] \\[FactoryDebug\\] \\[ (\\S+) : \\d+ \\]  "));
    static const QRegularExpression duration(QStringLiteral("^(gate .*) <[0-9.]+>$"));
    return line.remove(time)
        .replace(traceHead, QStringLiteral("trace \\1: "))
        .replace(duration, QStringLiteral("\\1"));
}

/// What devices on other threads say at a time of their own, and how often a wait for them ends.
bool isOfAnotherThread(const QString &line)
{
    static const QRegularExpression other(
        QStringLiteral("^(receiver |threads end|gate select|# )"));
    return other.match(line).hasMatch();
}

/// What lists say and ask while they are painted, which happens as often as the window system sees
/// fit.
bool isOfPainting(const QString &line, bool isBehindPainting)
{
    static const QRegularExpression painting(QStringLiteral(
        "^trace "
        "(usbtestmodel|usbtestdelegate|vendordatamodel|vendordatadelegate|lvscrollbar)\\.cpp"));
    return painting.match(line).hasMatch()
        || (isBehindPainting && line.startsWith(QLatin1String("asked Data")));
}

/// The lines that are to be the same in every run.
QStringList plainJournal(const QString &text)
{
    QStringList lines;
    bool isPainting = false;
    const QStringList all = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &one : all) {
        const QString line = plain(one);
        isPainting = isOfPainting(line, isPainting);
        if (!isPainting && !isOfAnotherThread(line)) {
            lines.append(line);
        }
    }
    return lines;
}

QString firstDifference(const QStringList &got, const QStringList &expected)
{
    int index = 0;
    while (index < got.size() && index < expected.size() && got.at(index) == expected.at(index)) {
        ++index;
    }
    const QString end = QStringLiteral("(the end)");
    return QStringLiteral("line %1 is\n  %2\nand not\n  %3\nbehind\n  %4")
        .arg(index + 1)
        .arg(got.value(index, end), expected.value(index, end),
             QStringList(got.mid(qMax(0, index - 3), qMin(3, index))).join(QStringLiteral("\n  ")));
}

/// Packages on both sticks, and logs to copy.
void furnish(const HeadunitRun &run)
{
    run.write(QStringLiteral("/media/flash/userdata/log_service/service.log"), "log");
    run.write(QStringLiteral("/media/flash/nvm/dfb_crash.dump"), "dump");
    const QString stick = run.path(QStringLiteral("/sticks/usb0/"));
    QVERIFY(QDir().mkpath(stick) && QDir().mkpath(run.path(QStringLiteral("/sticks/usb1"))));
    makeUpdatePackage(run.path(QStringLiteral("/sticks/usb1/ORRERY_PACK.BIN")));
    for (const char *name : {"bootloader", "firmware"}) {
        const QString file = stick + QStringLiteral("gps_%1.pkg").arg(QLatin1String(name));
        QCOMPARE(QProcess::execute(
                     QStringLiteral(MAKE_GPS_PACKAGE),
                     {QStringLiteral("valid"), file, QLatin1String(name), QStringLiteral("3000")}),
                 0);
    }
}

} // namespace

void TestJournals::everyJournalBelongsToASession()
{
    const QStringList names = journals().entryList({QStringLiteral("*.txt")});
    for (const QString &name : names) {
        const QString script = QFileInfo(name).completeBaseName() + QStringLiteral(".script");
        QVERIFY2(journals().exists(script), qPrintable(name));
    }
}

void TestJournals::session_data()
{
    QTest::addColumn<QString>("name");
    const QStringList scripts = journals().entryList({QStringLiteral("*.script")});
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
    RUN_SCENARIO(run, journals().filePath(name + QStringLiteral(".script")), speed);

    const QStringList got =
        plainJournal(QString::fromUtf8(run.read(QStringLiteral("/journal.log"))));
    const QString reference = journals().filePath(name + QStringLiteral(".txt"));
    if (qgetenv("FACTORYDEBUG_ACCEPT") == "journals") {
        writeText(reference, got);
        return;
    }
    const QStringList expected = readText(reference).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (got != expected) {
        const QString kept = QStringLiteral("%1-got.txt").arg(name);
        writeText(kept, got);
        QFAIL(qPrintable(
            QStringLiteral("%1 (all of it: %2)")
                .arg(firstDifference(got, expected), QFileInfo(kept).absoluteFilePath())));
    }
}

FACTORY_TEST_GUILESS_MAIN(TestJournals)
#include "tst_journals.moc"
