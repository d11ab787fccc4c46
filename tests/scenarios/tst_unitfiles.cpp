#include "headunitrun.h"

#include "support/testmain.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QtTest>

class TestUnitFiles : public QObject
{
    Q_OBJECT

private slots:
    void aFullDiskAtTheFirstStartLeavesNothingHalfMade_data();
    void aFullDiskAtTheFirstStartLeavesNothingHalfMade();
    void aFullDiskLaterIsSaidOnceAndInTheExitStatus();
    void aWrongTableIsRefused_data();
    void aWrongTableIsRefused();
    void aVersionKeepsEveryCharacter();
    void wrongValuesAreRefusedUnlessMarked();
    void nothingUnreadIsForgotten();
    void whatWasUnreadIsNotAbsent();
    void timesAreTheUnits();
};

namespace
{

/// The unit's files, each with its content; without what differs from start to start.
QMap<QString, QByteArray> filesOf(const HeadunitRun &run)
{
    QMap<QString, QByteArray> files;
    QDirIterator entries(run.path(QString()), QDir::Files | QDir::NoSymLinks | QDir::Hidden,
                         QDirIterator::Subdirectories);
    const QDir root(run.path(QString()));
    while (entries.hasNext()) {
        const QString name = root.relativeFilePath(entries.next());
        if (name != QLatin1String("journal.log") && name != QLatin1String("dev/mem")) {
            files.insert(name, run.read(QLatin1Char('/') + name));
        }
    }
    return files;
}

QStringList withScript(const QString &name)
{
    return {QStringLiteral("--script"), HeadunitRun::script(name)};
}

} // namespace

void TestUnitFiles::aFullDiskAtTheFirstStartLeavesNothingHalfMade_data()
{
    QTest::addColumn<int>("bytes");
    // None fits, some of the tables do, all but the vendor data do, all but the memory do.
    for (const int bytes : {0, 300, 2000, 10000}) {
        QTest::addRow("files of %d bytes", bytes) << bytes;
    }
}

void TestUnitFiles::aFullDiskAtTheFirstStartLeavesNothingHalfMade()
{
    QFETCH(int, bytes);
    HeadunitRun full;
    const HeadunitRun::End end = full.start(withScript(QStringLiteral("nothing.txt")), bytes);
    QCOMPARE(end.status, 4);
    QCOMPARE(end.error.count(QLatin1Char('\n')), 1);
    QVERIFY2(end.error.contains(full.path(QString())), qPrintable(end.error));
    // It would lack its reset values.
    QVERIFY(!QFile::exists(full.path(QStringLiteral("/dev/mem"))));

    HeadunitRun whole;
    RUN_SCENARIO(whole, QStringLiteral("nothing.txt"));
    const QMap<QString, QByteArray> right = filesOf(whole);
    const QMap<QString, QByteArray> left = filesOf(full);
    for (auto file = left.cbegin(); file != left.cend(); ++file) {
        QVERIFY2(right.value(file.key()) == *file, qPrintable(file.key()));
    }
    // With room again it is a unit like any other.
    RUN_SCENARIO(full, QStringLiteral("nothing.txt"));
    QCOMPARE(filesOf(full), right);
}

void TestUnitFiles::aFullDiskLaterIsSaidOnceAndInTheExitStatus()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("nothing.txt"));
    const QMap<QString, QByteArray> before = filesOf(run);
    run.write(QStringLiteral("/journal.log"), QByteArray());
    const HeadunitRun::End end = run.start(withScript(QStringLiteral("full-disk.txt")), 200);
    QCOMPARE(end.status, 6);
    QStringList said;
    const QStringList lines = end.error.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1String("The unit's file "))) {
            said.append(line);
        }
    }
    said.sort();
    const QString sentence =
        QStringLiteral("The unit's file \"%1\" cannot be written: File too large.");
    QCOMPARE(said,
             QStringList({sentence.arg(run.path(QStringLiteral("/daynight.ini"))),
                          sentence.arg(run.path(QStringLiteral("/journal.log"))),
                          sentence.arg(run.path(QStringLiteral("/settings.ini"))),
                          sentence.arg(run.path(QStringLiteral("/vendor.bin"))),
                          sentence.arg(run.path(QStringLiteral("/versions.ini")))}));
    QCOMPARE(filesOf(run), before);
}

void TestUnitFiles::aWrongTableIsRefused_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *table, const QByteArray &content, const char *error) {
        QTest::addRow("%s: %s", table, error)
            << QString::fromLatin1(table) << content << QString::fromLatin1(error);
    };
    const QByteArray item("position=1\noffset=0\nlength=4\n");
    row("daynight.ini", "[daynight]\nday=x\nnight=1\nautomatic=true\n",
        ", line 2: section \"daynight\": day \"x\" is not allowed; allowed is a whole number from "
        "-2147483648 to 2147483647.");
    row("versions.ini", "[versions]\nalsProduct=abc\n",
        ", line 2: section \"versions\": alsProduct \"abc\" is not allowed; allowed is a whole "
        "number from -2147483648 to 2147483647.");
    row("usb.ini", "[General]\nport0=7\n",
        ", line 2: section \"General\": port0 \"7\" is not allowed; allowed is a whole number from "
        "0 "
        "to 2.");
    row("vendor.ini", "[a]\n" + item + "[b]\n" + item,
        ", line 6: item \"b\": position \"1\" is not allowed; item \"a\" has it already.");
    row("registers.ini", "[]\naddress=0\nreset=0\n",
        ", line 1: \"[]\" is not allowed; allowed is \"[name]\".");
    row("slots.ini", "[usb0]\nmediaType=1000\ncontroller=0\nmountRoot=/media/usb0\n",
        ", line 2: slot \"usb0\": mediaType \"1000\" is not allowed; allowed is a whole number "
        "from "
        "0 to 255.");
    row("defaults.ini", "[default]\n",
        ", line 1: section \"default\": this name is not allowed; allowed is \"defaults\".");
    for (const char *table : {"daynight.ini", "versions.ini", "usb.ini", "vendor.ini",
                              "registers.ini", "slots.ini", "defaults.ini"}) {
        row(table, QByteArray("[a]\n\0\n", 6),
            ", line 2: a zero byte is not allowed; allowed is text.");
        row(table, QByteArray(),
            " is empty. A file that is removed is made anew at the next start.");
    }
}

void TestUnitFiles::aWrongTableIsRefused()
{
    QFETCH(QString, table);
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    const HeadunitRun run;
    run.write(QLatin1Char('/') + table, content);
    const HeadunitRun::End end = run.start(withScript(QStringLiteral("nothing.txt")));
    QCOMPARE(end.error, run.path(QLatin1Char('/') + table) + error + QLatin1Char('\n'));
    QCOMPARE(end.status, 4);
    QCOMPARE(run.read(QLatin1Char('/') + table), content);
}

void TestUnitFiles::aVersionKeepsEveryCharacter()
{
    HeadunitRun run;
    run.write(QStringLiteral("/versions.ini"),
              "[versions]\ngps=GNSS 2.0, beta; 3\nbluetooth=BT = [5]\nalsProduct=1\ndabSdk=\n");
    RUN_SCENARIO(run, QStringLiteral("version-kept.txt"));
}

void TestUnitFiles::wrongValuesAreRefusedUnlessMarked()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("wrong-on-purpose.txt"));
    for (const char *command : {"version alsProduct abc", "panel brightness 99", "dab 99"}) {
        run.write(QStringLiteral("/script.txt"), command);
        const HeadunitRun::End end =
            run.start({QStringLiteral("--script"), run.path(QStringLiteral("/script.txt"))});
        QCOMPARE(end.status, 1);
        QVERIFY2(end.error.contains(QLatin1String("script.txt:1: ")), qPrintable(end.error));
    }
}

void TestUnitFiles::nothingUnreadIsForgotten()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("journal-long.txt"));
}

void TestUnitFiles::whatWasUnreadIsNotAbsent()
{
    const HeadunitRun run;
    const QString script = HeadunitRun::script(QStringLiteral("journal-long-absent.txt"));
    const HeadunitRun::End end = run.start({QStringLiteral("--script"), script});
    QCOMPARE(end.status, 1);
    QCOMPARE(end.error,
             QStringLiteral("  settings probe/early = 1\n") + script
                 + QStringLiteral(":5: the journal has \"probe/early\"\n"));
}

void TestUnitFiles::timesAreTheUnits()
{
    const HeadunitRun run;
    const QString script = HeadunitRun::script(QStringLiteral("journal-times.txt"));
    const HeadunitRun::End end = run.start(
        {QStringLiteral("--speed"), QStringLiteral("100"), QStringLiteral("--script"), script});
    QCOMPARE(end.status, 0);
    const QString journal = QString::fromUtf8(run.read(QStringLiteral("/journal.log")));
    QVERIFY2(journal.contains(QRegularExpression(QStringLiteral(
                 "^# \\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d, version \\S+, speed 100\n"))),
             qPrintable(journal));
    const QRegularExpressionMatch printed =
        QRegularExpression(
            QStringLiteral("^  (\\d+\\.\\d{3}) als reading 1\n  (\\d+\\.\\d{3}) als reading 2\n$"))
            .match(end.output);
    QVERIFY2(printed.hasMatch(), qPrintable(end.output));
    // A millisecond of the host, by which both are cut, is a tenth of a second of this unit.
    const double seconds = printed.captured(2).toDouble() - printed.captured(1).toDouble();
    QVERIFY2(seconds > 59.85 && seconds < 600, qPrintable(end.output));
    QVERIFY2(journal.contains(QRegularExpression(QRegularExpression::escape(printed.captured(2))
                                                 + " #\\d+ als reading 2\n")),
             qPrintable(journal));
}

FACTORY_TEST_GUILESS_MAIN(TestUnitFiles)
#include "tst_unitfiles.moc"
