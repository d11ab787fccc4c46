#include "gate/gate.h"
#include "probemodule.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/wait.h>

using hardware::Gate;

namespace
{

/// Every name below the folder with its kind, size and time of change, as lines.
QStringList listing(const QString &folder, QDirIterator::IteratorFlags depth)
{
    QStringList lines;
    QDirIterator entries(
        folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, depth);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo info = entries.fileInfo();
        lines.append(QStringLiteral("%1 %2 %3 %4")
                         .arg(info.filePath())
                         .arg(info.isDir())
                         .arg(info.isFile() ? info.size() : 0)
                         .arg(info.isFile() ? info.lastModified().toMSecsSinceEpoch() : 0));
    }
    lines.sort();
    return lines;
}

QStringList names(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                  | QDir::NoDotAndDotDot);
}

/// What of the host's must not change. Names alone where the kernel gives files new times by
/// itself.
QStringList hostState()
{
    QStringList state = listing(QStringLiteral("/media"), QDirIterator::Subdirectories);
    state.append(QFileInfo(QStringLiteral("/media")).lastModified().toString(Qt::ISODateWithMs));
    for (const char *folder : {"/dev", "/sys", "/sys/module", "/sys/module/usbcore/parameters",
                               "/sys/devices/platform", "/proc/sys", "/proc/sys/kernel"}) {
        state.append(QString::fromLatin1(folder));
        state.append(names(QString::fromLatin1(folder)));
    }
    state.append(QString::fromLatin1(readFile(QStringLiteral("/proc/sys/kernel/printk"))));
    return state;
}

struct Folder
{
    const char *description;
    const char *name;
};

const Folder folders[] = {
    {"plain folder", "unit"},
    {"blanks", "a unit  with blanks"},
    {"quotes", "the unit's \"own\" `folder`"},
    {"dollar", "$HOME $(touch x) ${UNIT}"},
    {"operators", "a;b&c|d>e<f(g)*?[h]\\#"},
};

} // namespace

class tst_Containment : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aChangeWouldBeSeen_data();
    void aChangeWouldBeSeen();
    void commandsStayInTheUnit_data();
    void commandsStayInTheUnit();
    void refusedCommandsDoNothing_data();
    void refusedCommandsDoNothing();
    void fileCallsStayInTheUnit_data();
    void fileCallsStayInTheUnit();
};

void tst_Containment::initTestCase()
{
    QVERIFY2(!QFileInfo::exists(QStringLiteral("/media/usb0"))
                 && !QFileInfo::exists(QStringLiteral("/media/flash")),
             "The tests need a host without /media/usb0 and /media/flash.");
}

void tst_Containment::aChangeWouldBeSeen_data()
{
    QTest::addColumn<QString>("change");

    for (const char *change : {"new file", "new folder", "changed content", "removed file"}) {
        QTest::newRow(change) << QString::fromLatin1(change);
    }
}

void tst_Containment::aChangeWouldBeSeen()
{
    QFETCH(QString, change);

    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a/file"));
    writeFile(file, "content");
    const QStringList before = listing(folder.path(), QDirIterator::Subdirectories);
    QCOMPARE(before.size(), 2);
    if (change == QLatin1String("new file")) {
        writeFile(folder.filePath(QStringLiteral("a/new")), QByteArray());
    } else if (change == QLatin1String("new folder")) {
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("new")));
    } else if (change == QLatin1String("changed content")) {
        QTest::qSleep(20);
        writeFile(file, "CONTENT");
    } else {
        QVERIFY(QFile::remove(file));
    }
    QVERIFY(listing(folder.path(), QDirIterator::Subdirectories) != before);
}

void tst_Containment::commandsStayInTheUnit_data()
{
    QTest::addColumn<QString>("folder");

    for (const Folder &folder : folders) {
        QTest::newRow(folder.description) << QString::fromLatin1(folder.name);
    }
}

void tst_Containment::commandsStayInTheUnit()
{
    QFETCH(QString, folder);

    const QStringList before = hostState();
    OpenUnit unit(1.0, folder);
    QString error;
    QVERIFY2(unit->storage().plug(QStringLiteral("usb0"), QString(), &error), qPrintable(error));
    const QStringList made{
        QStringLiteral("/sys/module/usbcore/parameters/usb_logo_test_start"),
        QStringLiteral("/sys/devices/platform/ehci-platform.1/usb_speed_switch"),
        QStringLiteral("/sys/devices/platform/ehci-platform.2/usb_speed_switch"),
        QStringLiteral("/proc/sys/kernel/printk"),
    };
    for (const QString &file : made) {
        writeFile(unit.path(file), "untouched\n");
    }
    writeFile(unit.path(QStringLiteral("/media/flash/userdata/btsnoop.log")), "bluetooth");
    writeFile(unit.path(QStringLiteral("/media/flash/nvm/dfb_crash.dump")), "crash");
    writeFile(unit.path(QStringLiteral("/media/flash/userdata/log_service/a b/log 1")), "one");
    writeFile(unit.path(QStringLiteral("/media/usb0/nvm/btsnoop.log")), "old");
    // A plain file in the receiver's place, since what is written there shall be read again.
    QFile::remove(unit.path(QStringLiteral("/dev/ttyS3")));
    {
        const Gate gate(*unit);
        const GateProbe &probe = probeOf("gateprobe-hardened");
        for (const char *command : {
                 "mkdir -p /media/usb0/userdata",
                 "sync",
                 "cp /media/flash/userdata/btsnoop.log /media/usb0/userdata",
                 "rm /media/usb0/nvm/btsnoop.log",
                 "mkdir -p /media/usb0/QM_SYSTEMLOG",
                 "cp -rf /media/flash/userdata/log_service//*  /media/usb0/QM_SYSTEMLOG/",
                 "cp -rf /media/flash/nvm/dfb_crash.dump  /media/usb0/QM_SYSTEMLOG/",
                 "echo 1 > /sys/module/usbcore/parameters/usb_logo_test_start",
                 "echo 1 > /sys/devices/platform/ehci-platform.1/usb_speed_switch",
                 "echo 0 > /sys/devices/platform/ehci-platform.2/usb_speed_switch",
                 "echo 0 > /proc/sys/kernel/printk",
                 "echo text > /dev/ttyS3",
                 "dd if=/dev/ttyS3 of=/dev/mem 2> /dev/null",
                 "sh -c 'echo 2 > /media/usb0/by-shell'",
                 "cp /media/usb0/../flash/nvm/dfb_crash.dump '/media/usb0/a b'",
             }) {
            QVERIFY2(probe.system(command) == 0, command);
        }
    }
    QCOMPARE(hostState(), before);

    const QPair<const char *, const char *> expected[] = {
        {"/sticks/usb0/userdata/btsnoop.log", "bluetooth"},
        {"/sticks/usb0/QM_SYSTEMLOG/a b/log 1", "one"},
        {"/sticks/usb0/QM_SYSTEMLOG/dfb_crash.dump", "crash"},
        {"/sys/module/usbcore/parameters/usb_logo_test_start", "1\n"},
        {"/sys/devices/platform/ehci-platform.1/usb_speed_switch", "1\n"},
        {"/sys/devices/platform/ehci-platform.2/usb_speed_switch", "0\n"},
        {"/proc/sys/kernel/printk", "0\n"},
        {"/dev/ttyS3", "text\n"},
        {"/dev/mem", "text\n"},
        {"/sticks/usb0/by-shell", "2\n"},
        {"/sticks/usb0/a b", "crash"},
    };
    for (const auto &file : expected) {
        QCOMPARE(readFile(unit.path(QString::fromLatin1(file.first))), QByteArray(file.second));
    }
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/sticks/usb0/nvm/btsnoop.log"))));
    QCOMPARE(names(unit.beside(QString())), QStringList{folder});
}

void tst_Containment::refusedCommandsDoNothing_data()
{
    QTest::addColumn<QByteArray>("command");

    // Each would make or remove a file if it were run, of the host's or of the unit's.
    for (const char *command : {
             "mkdir /media/../media/usb0 /dev/factory-debug-test",
             "touch /media/flash/x /media/../dev/factory-debug-test",
             "touch /media/flash/x; touch '/dev/factory-debug-test'",
             "touch /media/flash/x; sh -c 'touch /dev/factory-debug-test'",
             "touch /media/flash/x; touch /de\"v\"/factory-debug-test",
             "touch /media/flash/x; X=/dev; touch $X/factory-debug-test",
             "touch /media/flash/x; touch /d*/factory-debug-test",
             "touch /media/flash/x; cd / && touch dev/factory-debug-test",
         }) {
        QTest::newRow(command) << QByteArray(command);
    }
}

void tst_Containment::refusedCommandsDoNothing()
{
    QFETCH(QByteArray, command);

    const QStringList before = hostState();
    OpenUnit unit;
    {
        const Gate gate(*unit);
        QCOMPARE(WEXITSTATUS(probeOf("gateprobe").system(command.constData())), 126);
    }
    QCOMPARE(hostState(), before);
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/media/flash/x"))));
    QCOMPARE(unit->journal().lines(),
             QStringList{QStringLiteral("shell refused ") + QString::fromLatin1(command)});
}

void tst_Containment::fileCallsStayInTheUnit_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("module");

    for (const Folder &folder : folders) {
        for (const char *module : probeModules) {
            QTest::addRow("%s, %s", folder.description, module)
                << QString::fromLatin1(folder.name) << QByteArray(module);
        }
    }
}

void tst_Containment::fileCallsStayInTheUnit()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, module);

    const QStringList before = hostState();
    OpenUnit unit(1.0, folder);
    const GateProbe &probe = probeOf(module);
    for (const char *area :
         {"/media/usb0", "/sys/module/usbcore", "/sys/devices/platform/x", "/proc/sys/kernel"}) {
        const QString known = unit.path(QString::fromLatin1(area)) + QStringLiteral("/known");
        const QString other = unit.path(QString::fromLatin1(area)) + QStringLiteral("/other");
        for (std::size_t i = 0; i < probe.count; ++i) {
            const ProbeCall &call = probe.calls[i];
            const bool isFolder =
                call.kind == ProbeCall::Enters || call.kind == ProbeCall::RemovesFolder;
            QDir(known).removeRecursively();
            QFile::remove(known);
            QFile::remove(other);
            if (isFolder) {
                QVERIFY(QDir().mkpath(known));
            } else if (call.kind == ProbeCall::Makes) {
                QVERIFY(QDir().mkpath(unit.path(QString::fromLatin1(area))));
            } else {
                writeFile(known, "known");
            }
            {
                const Gate gate(*unit);
                const QByteArray place(area);
                QVERIFY2(call.run((place + "/known").constData(), (place + "/other").constData())
                             == 0,
                         call.name);
            }
            const bool isGone = call.kind == ProbeCall::Removes
                || call.kind == ProbeCall::RemovesFolder
                || QByteArray(call.name).startsWith("rename");
            QVERIFY2(QFileInfo::exists(known) == !isGone, call.name);
            QVERIFY2(QFileInfo::exists(other) == (call.kind == ProbeCall::Joins), call.name);
        }
    }
    QCOMPARE(hostState(), before);
    QCOMPARE(names(unit.beside(QString())), QStringList{folder});
}

FACTORY_TEST_GUILESS_MAIN(tst_Containment)
#include "tst_containment.moc"
