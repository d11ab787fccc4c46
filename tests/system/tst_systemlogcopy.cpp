#include "system/systemlogcopy.h"

#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"

#include <QtTest>

class TestSystemLogCopy : public QObject
{
    Q_OBJECT

private slots:
    void withoutLogFolderOnlyMakesTheTarget();
    void withoutCrashDumpCopiesTheLogs();
    void missingStorageRunsNothing_data();
    void missingStorageRunsNothing();
    void fullStickTakesNoBytes();
    void namesWithBlanksArrive();
    void storageThatTheShellWouldInterpretRunsNothing();
    void longestStorageThatFitsIsUsed();
    void storageOneByteTooLongRunsNothing();
};

namespace
{

QByteArray logText()
{
    return QByteArray("line 1\n\0line 2\n", 15);
}

QByteArray dumpText()
{
    return QByteArray("\177ELF dump", 9);
}

const QString logFolder = QStringLiteral("/media/flash/userdata/log_service/");
const QString crashDump = QStringLiteral("/media/flash/nvm/dfb_crash.dump");

// "cp -rf /media/flash/userdata/log_service//*  " has 45 bytes and "/QM_SYSTEMLOG/" has 14; a
// command has room for 127.
const int longestRoot = 127 - 45 - 14;

void writeLog(const TestUnit &unit)
{
    writeFile(unit.path(logFolder + QStringLiteral("system.log")), logText());
}

void writeDump(const TestUnit &unit)
{
    writeFile(unit.path(crashDump), dumpText());
}

QStringList commands(const TestUnit &unit)
{
    return unit.journal(QStringLiteral("/^shell /"));
}

QByteArray longRoot(const TestUnit &unit, int length)
{
    const QByteArray root = QByteArray("/media/").leftJustified(length, 'x');
    QDir().mkpath(unit.path(QString::fromLatin1(root)));
    return root;
}

} // namespace

void TestSystemLogCopy::withoutLogFolderOnlyMakesTheTarget()
{
    TestUnit unit;
    writeDump(unit);
    unit.plug(QStringLiteral("usb0"));

    QVERIFY(!hasSystemLogs());
    QVERIFY(!copySystemLogs("/media/usb0"));

    QCOMPARE(commands(unit), QStringList("shell mkdir -p /media/usb0/QM_SYSTEMLOG"));
    QVERIFY(QDir(unit.path(QStringLiteral("/media/usb0/QM_SYSTEMLOG"))).isEmpty());
}

void TestSystemLogCopy::withoutCrashDumpCopiesTheLogs()
{
    TestUnit unit;
    writeLog(unit);
    unit.plug(QStringLiteral("usb0"));

    QVERIFY(copySystemLogs("/media/usb0"));

    QCOMPARE(commands(unit).size(), 4);
    QCOMPARE(QDir(unit.path(QStringLiteral("/media/usb0/QM_SYSTEMLOG"))).entryList(QDir::Files),
             QStringList("system.log"));
}

void TestSystemLogCopy::missingStorageRunsNothing_data()
{
    QTest::addColumn<QByteArray>("root");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("pulled") << QByteArray("/media/usb0");
}

void TestSystemLogCopy::missingStorageRunsNothing()
{
    QFETCH(QByteArray, root);
    const TestUnit unit;
    writeLog(unit);

    QVERIFY(!copySystemLogs(root.constData()));

    QCOMPARE(commands(unit), QStringList());
}

void TestSystemLogCopy::fullStickTakesNoBytes()
{
    TestUnit unit;
    writeLog(unit);
    writeDump(unit);
    unit.plug(QStringLiteral("usb0"));
    QString error;
    QVERIFY2(unit.unit().storage().setTrait(QStringLiteral("usb0"), hardware::StickTrait::Full, 1,
                                            &error),
             qPrintable(error));

    QVERIFY(copySystemLogs("/media/usb0"));

    QCOMPARE(commands(unit).size(), 4);
    const QString target = unit.path(QStringLiteral("/media/usb0/QM_SYSTEMLOG"));
    QVERIFY(QFileInfo(target).isDir());
    QCOMPARE(QFileInfo(target + QStringLiteral("/system.log")).size(), 0);
    QCOMPARE(QFileInfo(target + QStringLiteral("/dfb_crash.dump")).size(), 0);

    QVERIFY(unit.unit().storage().setTrait(QStringLiteral("usb0"), hardware::StickTrait::Full, 0,
                                           &error));
    QVERIFY(copySystemLogs("/media/usb0"));
    QCOMPARE(readFile(target + QStringLiteral("/system.log")), logText());
}

void TestSystemLogCopy::namesWithBlanksArrive()
{
    TestUnit unit;
    const QString name = QStringLiteral("day  1/it's a log; $(x) *.txt");
    writeFile(unit.path(logFolder + name), logText());
    unit.plug(QStringLiteral("usb0"));

    QVERIFY(copySystemLogs("/media/usb0"));

    QCOMPARE(readFile(unit.path(QStringLiteral("/media/usb0/QM_SYSTEMLOG/") + name)), logText());
}

void TestSystemLogCopy::storageThatTheShellWouldInterpretRunsNothing()
{
    const TestUnit unit;
    writeLog(unit);
    QVERIFY(QDir().mkpath(unit.path(QStringLiteral("/media/usb 0;reboot"))));
    const TraceCapture capture;

    QVERIFY(!copySystemLogs("/media/usb 0;reboot"));

    QCOMPARE(commands(unit), QStringList());
    QCOMPARE(capture.texts(), QStringList("storage not usable in a command: /media/usb 0;reboot"));
}

void TestSystemLogCopy::longestStorageThatFitsIsUsed()
{
    const TestUnit unit;
    writeLog(unit);
    const QByteArray root = longRoot(unit, longestRoot);

    QVERIFY(copySystemLogs(root.constData()));

    const QStringList run = commands(unit);
    QCOMPARE(run.size(), 4);
    QCOMPARE(run.at(1).size(), int(qstrlen("shell ")) + 127);
    QCOMPARE(readFile(unit.path(QString::fromLatin1(root + "/QM_SYSTEMLOG/system.log"))),
             logText());
}

void TestSystemLogCopy::storageOneByteTooLongRunsNothing()
{
    const TestUnit unit;
    writeLog(unit);
    const QByteArray root = longRoot(unit, longestRoot + 1);
    const TraceCapture capture;

    QVERIFY(!copySystemLogs(root.constData()));

    QCOMPARE(commands(unit), QStringList());
    QCOMPARE(capture.texts().size(), 1);
    QVERIFY(QDir(unit.path(QString::fromLatin1(root))).isEmpty());
}

FACTORY_TEST_MAIN(TestSystemLogCopy)
#include "tst_systemlogcopy.moc"
