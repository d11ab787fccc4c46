#include "hardware/unit/journal.h"

#include "support/fulldisk.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <thread>
#include <vector>

using hardware::Journal;
using hardware::JournalPattern;

class tst_Journal : public QObject
{
    Q_OBJECT

private slots:
    void aLineReadsSourceAndText();
    void linesAreCountedFromZero();
    void controlCharactersAreEscaped_data();
    void controlCharactersAreEscaped();
    void theFileHasTheTimeInFront();
    void theFileIsFlushedLineByLine();
    void aSecondRunAppends();
    void aFolderIsNoFileToAppendTo();
    void theHeadIsNoLine();
    void timesAreTheUnits();
    void aLineThatWasCutOffIsEnded();
    void aFullDiskIsSaidOnce();
    void patternMatches_data();
    void patternMatches();
    void aWrongExpressionIsExplained();
    void linesCanBeChosen();
    void findGivesTheFirstFromANumberOn();
    void theOldestLinesAreForgotten();
    void waitForFindsWhatIsThere();
    void waitForSeesALineComing();
    void waitForGivesUp();
    void waitForDoesNotWaitForAWrongExpression();
    void eightThreadsWriteWholeLines();

private:
    QString file(const QString &name) const { return m_folder.filePath(name); }
    QStringList fileLines(const QString &name) const;

    QTemporaryDir m_folder;
};

QStringList tst_Journal::fileLines(const QString &name) const
{
    QFile journalFile(file(name));
    if (!journalFile.open(QIODevice::ReadOnly)) {
        return {QStringLiteral("<the file cannot be read>")};
    }
    QStringList lines = QString::fromUtf8(journalFile.readAll()).split(QLatin1Char('\n'));
    if (!lines.takeLast().isEmpty()) {
        lines.append(QStringLiteral("<the last line has no end>"));
    }
    return lines;
}

void tst_Journal::aLineReadsSourceAndText()
{
    Journal journal;
    journal.write(QStringLiteral("shell"), QStringLiteral("sync"));
    QCOMPARE(journal.lines(), QStringList{QStringLiteral("shell sync")});
}

void tst_Journal::linesAreCountedFromZero()
{
    Journal journal;
    QCOMPARE(journal.end(), qint64(0));
    journal.write(QStringLiteral("a"), QStringLiteral("1"));
    QCOMPARE(journal.end(), qint64(1));
    journal.write(QStringLiteral("a"), QStringLiteral("2"));
    QCOMPARE(journal.end(), qint64(2));
    QCOMPARE(journal.find(JournalPattern(QStringLiteral("a 1"))), qint64(0));
    QCOMPARE(journal.find(JournalPattern(QStringLiteral("a 2"))), qint64(1));
}

void tst_Journal::controlCharactersAreEscaped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");

    QTest::newRow("line feed") << "a\nb"
                               << R"(x a\nb)";
    QTest::newRow("carriage return") << "a\rb"
                                     << R"(x a\rb)";
    QTest::newRow("tabulator") << "a\tb"
                               << R"(x a\tb)";
    QTest::newRow("escape") << "\033[31m"
                            << R"(x \x1b[31m)";
    QTest::newRow("zero byte") << QString(QChar(0)) << R"(x \x00)";
    QTest::newRow("delete") << QString(QChar(0x7f)) << R"(x \x7f)";
    QTest::newRow("next line, U+0085") << QString(QChar(0x85)) << R"(x \x85)";
    QTest::newRow("line separator, U+2028") << QString(QChar(0x2028)) << R"(x \u2028)";
    QTest::newRow("backslash stays") << R"(a\nb)"
                                     << R"(x a\nb)";
    QTest::newRow("letters stay") << QString::fromUtf8("äß漢") << QString::fromUtf8("x äß漢");
    QTest::newRow("empty") << ""
                           << "x ";
}

void tst_Journal::controlCharactersAreEscaped()
{
    QFETCH(QString, text);
    QFETCH(QString, line);

    Journal journal;
    journal.write(QStringLiteral("x"), text);
    QCOMPARE(journal.lines(), QStringList{line});
}

void tst_Journal::theFileHasTheTimeInFront()
{
    Journal journal;
    QVERIFY(journal.appendTo(file(QStringLiteral("timed"))));
    journal.write(QStringLiteral("first"), QString::fromUtf8("ä"));
    QTest::qSleep(30);
    journal.write(QStringLiteral("second"), QStringLiteral("b\nc"));

    const QStringList lines = fileLines(QStringLiteral("timed"));
    QCOMPARE(lines.size(), 2);
    const QRegularExpression first(QString::fromUtf8(R"(^(\d+\.\d{3}) #\? first ä$)"));
    const QRegularExpression second(QStringLiteral(R"(^(\d+\.\d{3}) #\? second b\\nc$)"));
    QVERIFY2(first.match(lines.at(0)).hasMatch(), qPrintable(lines.at(0)));
    QVERIFY2(second.match(lines.at(1)).hasMatch(), qPrintable(lines.at(1)));
    const double pause = second.match(lines.at(1)).captured(1).toDouble()
        - first.match(lines.at(0)).captured(1).toDouble();
    QVERIFY2(pause >= 0.029 && pause < 10, qPrintable(QString::number(pause)));
}

void tst_Journal::theFileIsFlushedLineByLine()
{
    Journal journal;
    QVERIFY(journal.appendTo(file(QStringLiteral("flushed"))));
    for (int count = 1; count <= 3; ++count) {
        journal.write(QStringLiteral("a"), QString::number(count));
        QCOMPARE(fileLines(QStringLiteral("flushed")).size(), count);
    }
}

void tst_Journal::aSecondRunAppends()
{
    for (int run = 1; run <= 2; ++run) {
        Journal journal;
        QVERIFY(journal.appendTo(file(QStringLiteral("kept"))));
        journal.write(QStringLiteral("run"), QString::number(run));
        QCOMPARE(journal.end(), qint64(1));
    }
    const QStringList lines = fileLines(QStringLiteral("kept"));
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines.at(0).endsWith(QLatin1String(" run 1")));
    QVERIFY(lines.at(1).endsWith(QLatin1String(" run 2")));
}

void tst_Journal::aFolderIsNoFileToAppendTo()
{
    Journal journal;
    QVERIFY(!journal.appendTo(m_folder.path()));
    journal.write(QStringLiteral("still"), QStringLiteral("works"));
    QCOMPARE(journal.end(), qint64(1));
}

void tst_Journal::theHeadIsNoLine()
{
    Journal journal;
    QVERIFY(journal.appendTo(file(QStringLiteral("headed")), QStringLiteral("# a start")));
    journal.write(QStringLiteral("a"), QStringLiteral("1"));
    QCOMPARE(journal.lines(), QStringList{QStringLiteral("a 1")});
    QCOMPARE(fileLines(QStringLiteral("headed")).constFirst(), QStringLiteral("# a start"));
    QCOMPARE(fileLines(QStringLiteral("headed")).size(), 2);
}

void tst_Journal::timesAreTheUnits()
{
    Journal journal(hardware::Clock(1000));
    QVERIFY(journal.appendTo(file(QStringLiteral("fast"))));
    QTest::qSleep(20);
    journal.write(QStringLiteral("a"), QStringLiteral("1"));
    journal.write(QStringLiteral("b"), QStringLiteral("2"));
    const QList<Journal::Line> lines = journal.entries(QStringLiteral("/^a/"));
    QCOMPARE(lines.size(), 1);
    QCOMPARE(Journal::withCause(lines.first()), fileLines(QStringLiteral("fast")).constFirst());
    const QString timed = Journal::withTime(lines.first());
    QVERIFY2(timed.section(QLatin1Char(' '), 0, 0).toDouble() >= 20, qPrintable(timed));
    QVERIFY2(timed.endsWith(QLatin1String(" a 1")), qPrintable(timed));
}

void tst_Journal::aLineThatWasCutOffIsEnded()
{
    writeFile(file(QStringLiteral("cut")), "# head\n0.002 #1 a");
    for (int start = 0; start < 2; ++start) {
        QVERIFY(Journal().appendTo(file(QStringLiteral("cut")), QStringLiteral("# head")));
    }
    const QStringList mended{"# head", "0.002 #1 a ... cut off", "# head", "# head"};
    QCOMPARE(fileLines(QStringLiteral("cut")), mended);
}

void tst_Journal::aFullDiskIsSaidOnce()
{
    Journal journal;
    const QString name = file(QStringLiteral("full"));
    QVERIFY(journal.appendTo(name));
    journal.write(QStringLiteral("a"), QStringLiteral("1"));
    QVERIFY(!journal.hasFailedWrites());
    {
        const FullDisk full(5);
        journal.write(QStringLiteral("a"), QStringLiteral("2"));
        journal.write(QStringLiteral("a"), QStringLiteral("3"));
    }
    const QString report = QStringLiteral("unit cannot write %1: File too large").arg(name);
    QCOMPARE(journal.lines(), QStringList({"a 1", "a 2", report, "a 3"}));
    QVERIFY(journal.hasFailedWrites());
    // Once there is room, nothing is missing.
    journal.write(QStringLiteral("a"), QStringLiteral("4"));
    QStringList lines;
    const QList<Journal::Line> entries = journal.entries();
    for (const Journal::Line &line : entries) {
        lines.append(Journal::withCause(line));
    }
    QCOMPARE(fileLines(QStringLiteral("full")), lines);
}

void tst_Journal::patternMatches_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("matches");

    QTest::newRow("plain text inside") << "FF 66" << true;
    QTest::newRow("plain text elsewhere") << "FF 67" << false;
    QTest::newRow("plain text is no expression") << "mcu .*" << false;
    QTest::newRow("nothing") << "" << true;
    QTest::newRow("a slash is plain text") << "/" << false;
    QTest::newRow("expression") << "/^mcu .* FF$/" << true;
    QTest::newRow("expression elsewhere") << "/^FF/" << false;
    QTest::newRow("empty expression") << "//" << true;
    QTest::newRow("slash only in front") << "/mcu" << false;
    QTest::newRow("wrong expression") << "/mcu (/" << false;
}

void tst_Journal::patternMatches()
{
    QFETCH(QString, pattern);
    QFETCH(bool, matches);

    QCOMPARE(JournalPattern(pattern).matches(QStringLiteral("mcu FF 66 05 FF")), matches);
}

void tst_Journal::aWrongExpressionIsExplained()
{
    const JournalPattern wrong(QStringLiteral("/mcu (/"));
    QVERIFY(!wrong.isValid());
    QVERIFY2(wrong.error().startsWith(QLatin1String("/mcu (/ is no regular expression: ")),
             qPrintable(wrong.error()));
    QVERIFY2(wrong.error().endsWith(QLatin1String(" at character 5.")), qPrintable(wrong.error()));

    QVERIFY(JournalPattern(QStringLiteral("(")).isValid());
    QCOMPARE(JournalPattern(QStringLiteral("/a/")).error(), QString());
}

void tst_Journal::linesCanBeChosen()
{
    Journal journal;
    for (const char *text : {"mkdir a", "sync", "cp a b", "sync"}) {
        journal.write(QStringLiteral("shell"), QString::fromLatin1(text));
    }
    const QString sync = QStringLiteral("shell sync");
    QCOMPARE(journal.lines(QStringLiteral("sync")), (QStringList{sync, sync}));
    QCOMPARE(journal.lines(QString(), 2), (QStringList{QStringLiteral("shell cp a b"), sync}));
    QCOMPARE(journal.lines(QStringLiteral("/sync/"), 2), QStringList{sync});
    QCOMPARE(journal.lines(QString(), 4), QStringList());
    QCOMPARE(journal.lines(QString(), -1).size(), 4);
}

void tst_Journal::findGivesTheFirstFromANumberOn()
{
    Journal journal;
    for (const char *text : {"a", "b", "a", "b"}) {
        journal.write(QStringLiteral("x"), QString::fromLatin1(text));
    }
    const JournalPattern b(QStringLiteral("x b"));
    QCOMPARE(journal.find(b), qint64(1));
    QCOMPARE(journal.find(b, 1), qint64(1));
    QCOMPARE(journal.find(b, 2), qint64(3));
    QCOMPARE(journal.find(b, 4), qint64(-1));
    QCOMPARE(journal.find(b, 100), qint64(-1));
    QCOMPARE(journal.find(JournalPattern(QStringLiteral("x c"))), qint64(-1));
}

void tst_Journal::theOldestLinesAreForgotten()
{
    Journal journal;
    QVERIFY(journal.appendTo(file(QStringLiteral("long"))));
    constexpr int held = 20000;
    for (int i = 0; i < held + 5; ++i) {
        journal.write(QStringLiteral("n"), QStringLiteral("%1.").arg(i));
    }
    QCOMPARE(journal.end(), qint64(held + 5));
    QCOMPARE(journal.lines().size(), held);
    QCOMPARE(journal.lines().constFirst(), QStringLiteral("n 5."));
    QCOMPARE(journal.lines(QString(), 7).constFirst(), QStringLiteral("n 7."));
    QCOMPARE(journal.find(JournalPattern(QStringLiteral("n 4."))), qint64(-1));
    QCOMPARE(journal.find(JournalPattern(QStringLiteral("n 5."))), qint64(5));
    QCOMPARE(journal.find(JournalPattern(QStringLiteral("/^n 20004/")), 20004), qint64(20004));
    QCOMPARE(fileLines(QStringLiteral("long")).size(), held + 5);
}

void tst_Journal::waitForFindsWhatIsThere()
{
    Journal journal;
    journal.write(QStringLiteral("a"), QStringLiteral("b"));
    QCOMPARE(journal.waitFor(JournalPattern(QStringLiteral("a b")), 0, 0), qint64(0));
}

void tst_Journal::waitForSeesALineComing()
{
    Journal journal;
    journal.write(QStringLiteral("x"), QStringLiteral("wanted"));
    std::thread writer([&journal] {
        for (int i = 0; i < 5; ++i) {
            QTest::qSleep(10);
            journal.write(QStringLiteral("x"), QStringLiteral("other"));
        }
        journal.write(QStringLiteral("x"), QStringLiteral("wanted"));
    });
    // The line of that text before number 1 does not count.
    const qint64 found = journal.waitFor(JournalPattern(QStringLiteral("wanted")), 1, 30000);
    writer.join();
    QCOMPARE(found, qint64(6));
}

void tst_Journal::waitForGivesUp()
{
    Journal journal;
    journal.write(QStringLiteral("x"), QStringLiteral("other"));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(journal.waitFor(JournalPattern(QStringLiteral("wanted")), 0, 50), qint64(-1));
    QVERIFY2(timer.elapsed() >= 49, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(journal.waitFor(JournalPattern(QStringLiteral("wanted")), 0, 0), qint64(-1));
    QCOMPARE(journal.waitFor(JournalPattern(QStringLiteral("wanted")), 0, -1), qint64(-1));
}

void tst_Journal::waitForDoesNotWaitForAWrongExpression()
{
    Journal journal;
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(journal.waitFor(JournalPattern(QStringLiteral("/(/")), 0, 60000), qint64(-1));
    QVERIFY(timer.elapsed() < 30000);
}

void tst_Journal::eightThreadsWriteWholeLines()
{
    constexpr int threadCount = 8;
    constexpr int linesEach = 2000;
    Journal journal;
    QVERIFY(journal.appendTo(file(QStringLiteral("threads"))));
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&journal, thread] {
            for (int i = 0; i < linesEach; ++i) {
                journal.write(QStringLiteral("t%1").arg(thread), QStringLiteral("line %1").arg(i));
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }

    QCOMPARE(journal.end(), qint64(threadCount * linesEach));
    const QStringList lines = journal.lines();
    QCOMPARE(lines.size(), threadCount * linesEach);
    for (int thread = 0; thread < threadCount; ++thread) {
        const QStringList own = journal.lines(QStringLiteral("/^t%1 /").arg(thread));
        QCOMPARE(own.size(), linesEach);
        for (int i = 0; i < linesEach; ++i) {
            QCOMPARE(own.at(i), QStringLiteral("t%1 line %2").arg(thread).arg(i));
        }
    }

    const QStringList written = fileLines(QStringLiteral("threads"));
    QCOMPARE(written.size(), lines.size());
    double last = 0;
    for (int i = 0; i < written.size(); ++i) {
        const double time = written.at(i).section(QLatin1Char(' '), 0, 0).toDouble();
        QVERIFY(time >= last);
        last = time;
        QCOMPARE(written.at(i).section(QLatin1Char(' '), 2), lines.at(i));
    }
}

FACTORY_TEST_GUILESS_MAIN(tst_Journal)
#include "tst_journal.moc"
