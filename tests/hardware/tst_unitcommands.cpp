// The unit's own programs, as its shell finds them.

#include "support/openunit.h"
#include "support/testmain.h"

#include <QDirIterator>
#include <QtTest>

#include <future>

using hardware::StickTrait;

class tst_UnitCommands : public QObject
{
    Q_OBJECT

private slots:
    void logsetKeepsTheValue();
    void logsetRefuses_data();
    void logsetRefuses();
    void killallEndsWhatRunsInTheUnit();
    void killallRefuses_data();
    void killallRefuses();
    void printkIsTheUnits();
    void mkdirTakesABareName();
    void aWriteProtectedStickIsNotChanged_data();
    void aWriteProtectedStickIsNotChanged();
    void aWriteProtectedStickIsRead();
    void aSlowStickTakesItsTime_data();
    void aSlowStickTakesItsTime();
    void aSlowCopyThatIsPulledIsHalfDone();
    void whatIsNotSyncedIsLostWithThePower_data();
    void whatIsNotSyncedIsLostWithThePower();
    void whatRunsEndsWithThePower();
    void aPulledStickKeepsWhatItHas();
};

namespace
{

int run(OpenUnit &unit, const QByteArray &command)
{
    const int status = unit->shell().run(command + " 2>/dev/null");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// A stick with a file, which is like that.
void plug(OpenUnit &unit, StickTrait trait, int value)
{
    writeFile(unit.path(QStringLiteral("/sticks/usb0/kept/log")), "old");
    QString error;
    QVERIFY2(unit->storage().plug(QStringLiteral("usb0"), QString(), &error), qPrintable(error));
    QVERIFY2(unit->storage().setTrait(QStringLiteral("usb0"), trait, value, &error),
             qPrintable(error));
}

/// All in it and below it, by their paths from there.
QStringList filesOf(const QString &folder)
{
    QStringList names;
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        names.append(QDir(folder).relativeFilePath(files.next()));
    }
    names.sort();
    return names;
}

/// The folders and files below one, with what is in these.
QStringList allOf(const QString &folder)
{
    QStringList all;
    QDirIterator entries(folder, QDir::AllEntries | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        all.append(QFileInfo(path).isDir() ? path + QLatin1Char('/')
                                           : path + QLatin1Char('=') + readFile(path));
    }
    all.sort();
    return all;
}

} // namespace

void tst_UnitCommands::logsetKeepsTheValue()
{
    OpenUnit unit;
    QCOMPARE(run(unit, "logset ALOG_OUTPUT n"), 0);
    QCOMPARE(readFile(unit.path(QStringLiteral("/logset/ALOG_OUTPUT"))), QByteArray("n\n"));
    QCOMPARE(run(unit, "logset ALOG_OUTPUT y"), 0);
    QCOMPARE(readFile(unit.path(QStringLiteral("/logset/ALOG_OUTPUT"))), QByteArray("y\n"));
}

void tst_UnitCommands::logsetRefuses_data()
{
    QTest::addColumn<QByteArray>("command");
    for (const char *command : {"logset", "logset ALOG_OUTPUT", "logset A b c", "logset a/b n",
                                "logset .. n", "logset '' n"}) {
        QTest::newRow(command) << QByteArray(command);
    }
}

void tst_UnitCommands::logsetRefuses()
{
    QFETCH(QByteArray, command);
    OpenUnit unit;
    QCOMPARE(run(unit, command), 2);
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/logset"))));
}

void tst_UnitCommands::killallEndsWhatRunsInTheUnit()
{
    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/run/as_server")), "");
    writeFile(unit.path(QStringLiteral("/run/other")), "");
    QCOMPARE(run(unit, "killall as_server"), 0);
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/run/as_server"))));
    QVERIFY(QFileInfo::exists(unit.path(QStringLiteral("/run/other"))));
    QCOMPARE(run(unit, "killall as_server"), 1);
    QCOMPARE(run(unit, "killall as_server other"), 1);
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/run/other"))));
}

void tst_UnitCommands::killallRefuses_data()
{
    QTest::addColumn<QByteArray>("command");
    for (const char *command :
         {"killall", "killall -9", "killall .", "killall ..", "killall a/b", "killall ''"}) {
        QTest::newRow(command) << QByteArray(command);
    }
}

void tst_UnitCommands::killallRefuses()
{
    QFETCH(QByteArray, command);
    OpenUnit unit;
    QCOMPARE(run(unit, command), 2);
}

void tst_UnitCommands::printkIsTheUnits()
{
    OpenUnit unit;
    QCOMPARE(readFile(unit.path(QStringLiteral("/proc/sys/kernel/printk"))),
             QByteArray("7\t4\t1\t7\n"));
    QCOMPARE(run(unit, "echo 0 > /proc/sys/kernel/printk"), 0);
    QCOMPARE(readFile(unit.path(QStringLiteral("/proc/sys/kernel/printk"))), QByteArray("0\n"));
}

void tst_UnitCommands::mkdirTakesABareName()
{
    OpenUnit unit;
    QCOMPARE(run(unit, "cd \"$UNIT/media\" && timeout 20 mkdir -p bare other/folder"), 0);
    QVERIFY(QFileInfo(unit.path(QStringLiteral("/media/bare"))).isDir());
    QVERIFY(QFileInfo(unit.path(QStringLiteral("/media/other/folder"))).isDir());
}

void tst_UnitCommands::aWriteProtectedStickIsNotChanged_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("complaint");
    const auto row = [](const char *command, const QString &complaint) {
        QTest::newRow(command) << QByteArray(command) << int(!complaint.isEmpty()) << complaint;
    };
    row("cp /media/flash/log /media/usb0",
        "cp: cannot create regular file '%1/media/usb0': Read-only file system");
    row("cp -rf /media/flash/* /media/usb0/kept/",
        "cp: cannot create regular file '%1/media/usb0/kept/': Read-only file system");
    row("mkdir -p /media/usb0/new/folder",
        "mkdir: cannot create directory '%1/media/usb0/new/folder': Read-only file system");
    row("rm /media/usb0/kept/log",
        "rm: cannot remove '%1/media/usb0/kept/log': Read-only file system");
    row("rm -rf /media/usb0/kept", "rm: cannot remove '%1/media/usb0/kept': Read-only file system");
    row("mkdir -p /media/usb0/kept", QString());
    row("rm -f /media/usb0/none", QString());
}

void tst_UnitCommands::aWriteProtectedStickIsNotChanged()
{
    QFETCH(QByteArray, command);
    QFETCH(QString, complaint);
    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/media/flash/log")), "new");
    plug(unit, StickTrait::WriteProtected, 1);
    const QString heard = unit.beside(QStringLiteral("heard"));
    const int status = unit->shell().run(command + " 2>" + heard.toLocal8Bit());
    QTEST(WEXITSTATUS(status), "status");
    QCOMPARE(QString::fromLocal8Bit(readFile(heard)).trimmed(),
             complaint.replace("%1", unit->folder().root()));
    QCOMPARE(filesOf(unit.path(QStringLiteral("/sticks/usb0"))), QStringList("kept/log"));
    QCOMPARE(readFile(unit.path(QStringLiteral("/sticks/usb0/kept/log"))), QByteArray("old"));
}

void tst_UnitCommands::aWriteProtectedStickIsRead()
{
    OpenUnit unit;
    plug(unit, StickTrait::WriteProtected, 1);
    QCOMPARE(run(unit, "cp /media/usb0/kept/log /media/flash/"), 0);
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/flash/log"))), QByteArray("old"));
    QString error;
    QVERIFY(unit->storage().plug(QStringLiteral("usb1"), QString(), &error));
    QCOMPARE(run(unit, "cp /media/flash/log /media/usb1/new"), 0);
    QVERIFY(
        unit->storage().setTrait(QStringLiteral("usb0"), StickTrait::WriteProtected, 0, &error));
    QCOMPARE(run(unit, "cp /media/flash/log /media/usb0/new"), 0);
    QCOMPARE(run(unit, "rm /media/usb0/kept/log"), 0);
    QCOMPARE(filesOf(unit.path(QStringLiteral("/sticks/usb0"))), QStringList("new"));
}

void tst_UnitCommands::aSlowStickTakesItsTime_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("written") << QByteArray("cp -rf /media/flash/a /media/flash/b /media/usb0/");
    QTest::newRow("written as a file") << QByteArray("cp /media/flash/both /media/usb0/file");
    QTest::newRow("read") << QByteArray("cp -rf /media/usb0/both /media/flash/nvm/");
}

void tst_UnitCommands::aSlowStickTakesItsTime()
{
    QFETCH(QByteArray, command);
    const double timeFactor = 20;
    OpenUnit unit(timeFactor);
    writeFile(unit.path(QStringLiteral("/media/flash/a")), QByteArray(30000, 'a'));
    writeFile(unit.path(QStringLiteral("/media/flash/b")), QByteArray(10000, 'b'));
    writeFile(unit.path(QStringLiteral("/media/flash/both")), QByteArray(40000, 'c'));
    plug(unit, StickTrait::Slow, 1000);
    writeFile(unit.path(QStringLiteral("/media/usb0/both")), QByteArray(40000, 'c'));
    QElapsedTimer host;
    host.start();
    QCOMPARE(run(unit, command), 0);
    // 40 s of the unit's time, 2 s of the host's; a busy host is later.
    QVERIFY2(host.elapsed() >= 2000 && host.elapsed() < 35000,
             qPrintable(QString::number(host.elapsed())));
    QString error;
    QVERIFY(unit->storage().setTrait(QStringLiteral("usb0"), StickTrait::Slow, 0, &error));
    host.start();
    QCOMPARE(run(unit, command), 0);
    QVERIFY2(host.elapsed() < 2000, qPrintable(QString::number(host.elapsed())));
}

void tst_UnitCommands::aSlowCopyThatIsPulledIsHalfDone()
{
    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/media/flash/first")), "1");
    writeFile(unit.path(QStringLiteral("/media/flash/second")), QByteArray(4000, '2'));
    plug(unit, StickTrait::Slow, 1000);
    std::future<int> copy = std::async(std::launch::async, [&] {
        return run(unit, "cp -rf /media/flash/first /media/flash/second /media/usb0/");
    });
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(unit.path(QStringLiteral("/sticks/usb0/first"))).size() == 1,
                             30000);
    QString error;
    QVERIFY2(unit->storage().pull(QStringLiteral("usb0"), &error), qPrintable(error));
    QCOMPARE(copy.get(), 1);
    QCOMPARE(filesOf(unit.path(QStringLiteral("/sticks/usb0"))),
             (QStringList{"first", "kept/log"}));
}

void tst_UnitCommands::whatIsNotSyncedIsLostWithThePower_data()
{
    QTest::addColumn<QByteArray>("synced");
    QTest::addColumn<QByteArray>("lost");
    const auto row = [](const char *synced, const char *lost) {
        QTest::newRow(lost) << QByteArray(synced) << QByteArray(lost);
    };
    row("", "mkdir -p /media/usb0/a/b/c");
    row("mkdir /media/usb0/a", "mkdir /media/usb0/a/b /media/usb0/c");
    row("", "cp /media/flash/new /media/usb0/");
    row("", "cp /media/flash/new /media/usb0/kept/log");
    row("", "cp -rf /media/flash/new /media/flash/other /media/usb0/kept/");
    row("", "cp -rf /media/flash/new /media/flash/other /media/flash/nvm /media/usb0/kept/");
    row("", "cp -rf /media/flash/new /media/flash/other /media/flash/nvm /media/usb0");
    row("", "cp -r /media/usb0/kept /media/usb0/copy");
    row("", "rm /media/usb0/kept/log");
    row("",
        "rm -rf /media/usb0/kept; mkdir /media/usb0/kept; cp /media/flash/new /media/usb0/kept");
    row("cp /media/flash/new '/media/usb0/a b'", "rm '/media/usb0/a b'");
    row("cp /media/flash/new /media/flash/more", "cp /media/flash/other /media/flash/more");
    row("rm /media/usb0/kept/log", "mkdir /media/usb0/kept/log");
}

void tst_UnitCommands::whatIsNotSyncedIsLostWithThePower()
{
    QFETCH(QByteArray, synced);
    QFETCH(QByteArray, lost);
    OpenUnit unit;
    plug(unit, StickTrait::Full, 0);
    writeFile(unit.path(QStringLiteral("/media/flash/new")), "new");
    writeFile(unit.path(QStringLiteral("/media/flash/other")), "other");
    const auto all = [&unit] {
        return allOf(unit.path(QStringLiteral("/sticks"))) + allOf(unit.path("/media/flash"));
    };
    QVERIFY(synced.isEmpty() || run(unit, synced) == 0);
    QCOMPARE(run(unit, "sync"), 0);
    const QStringList before = all();
    QCOMPARE(run(unit, lost), 0);
    const QStringList after = all();
    QVERIFY(after != before);
    unit->cutPower();
    QCOMPARE(all(), before);
    QVERIFY(!unit->journal().lines(QStringLiteral("/^unit lost /")).isEmpty());

    // The same is safe once it is synced.
    unit->programsEnded();
    QCOMPARE(run(unit, lost + "; sync"), 0);
    unit->cutPower();
    QCOMPARE(all(), after);
}

void tst_UnitCommands::whatRunsEndsWithThePower()
{
    OpenUnit unit;
    plug(unit, StickTrait::Slow, 1);
    auto copy = std::async(std::launch::async, [&unit] {
        return unit->shell().run("cp /media/usb0/kept/log /media/usb0/copy");
    });
    QTRY_VERIFY(QFileInfo::exists(unit.path(QStringLiteral("/unsynced"))));
    unit->cutPower();
    const int status = copy.get();
    QVERIFY(WIFSIGNALED(status));
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/media/usb0/copy"))));
    QVERIFY(WIFSIGNALED(unit->shell().run("sync")));
    unit->programsEnded();
    QCOMPARE(unit->shell().run("sync"), 0);
}

void tst_UnitCommands::aPulledStickKeepsWhatItHas()
{
    OpenUnit unit;
    plug(unit, StickTrait::Full, 0);
    QCOMPARE(run(unit, "rm /media/usb0/kept/log"), 0);
    QCOMPARE(run(unit, "mkdir /media/flash/folder"), 0);
    QString error;
    QVERIFY(unit->storage().pull(QStringLiteral("usb0"), &error));
    QVERIFY(unit->storage().plug(QStringLiteral("usb0"), QString(), &error));
    unit->cutPower();
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/media/usb0/kept/log"))));
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/media/flash/folder"))));
}

FACTORY_TEST_GUILESS_MAIN(tst_UnitCommands)
#include "tst_unitcommands.moc"
