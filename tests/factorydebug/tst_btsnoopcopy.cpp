#include "factorydebug/btsnoopcopy.h"

#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"

#include <QtTest>

class TestBtsnoopCopy : public QObject
{
    Q_OBJECT

private slots:
    void firstCopyMakesTheFolders();
    void secondCopyRemovesTheOldLogsFirst();
    void folderWithoutLogIsKeptAsItIs();
    void missingLogsLeaveTheFoldersEmpty();
    void deviceThatTheShellWouldInterpretRunsNothing();
    void longestDeviceThatFitsIsUsed();
    void deviceOneByteTooLongRunsNothing();
};

namespace
{

QByteArray userdataLog()
{
    return QByteArray("btsnoop\0\1\2 userdata", 19);
}

QByteArray nvmLog()
{
    return QByteArray("nvm log\n");
}

void writeLogs(const TestUnit &unit)
{
    writeFile(unit.path(QStringLiteral("/media/flash/userdata/btsnoop.log")), userdataLog());
    writeFile(unit.path(QStringLiteral("/media/flash/nvm/btsnoop.log")), nvmLog());
}

/// A mount root of that many bytes that exists in the unit.
QByteArray longDevice(const TestUnit &unit, int length)
{
    QByteArray device("/media/");
    while (device.size() < length) {
        // Folder names may have no more than 255 bytes.
        device.append(device.size() % 100 == 99 && device.size() < length - 1 ? '/' : 'x');
    }
    QDir().mkpath(unit.path(QString::fromLatin1(device)));
    return device;
}

/// Copies the unit's logs to the stick, which takes for each folder that command before the copy.
void copyWith(const QString &firstCommand, const TestUnit &unit)
{
    writeLogs(unit);
    copyBtsnoopLogs("/media/usb0");

    QStringList commands;
    for (const char *folder : {"userdata", "nvm"}) {
        const auto sync = QStringLiteral("shell sync");
        const auto copy =
            QStringLiteral("shell cp /media/flash/%1/btsnoop.log /media/usb0/%1").arg(folder);
        commands << firstCommand.arg(folder) << sync << copy << sync;
    }
    QCOMPARE(unit.journal(QStringLiteral("/^shell /")), commands);
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/usb0/userdata/btsnoop.log"))),
             userdataLog());
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/usb0/nvm/btsnoop.log"))), nvmLog());
}

} // namespace

void TestBtsnoopCopy::firstCopyMakesTheFolders()
{
    TestUnit unit;
    unit.plug(QStringLiteral("usb0"));
    copyWith(QStringLiteral("shell mkdir -p /media/usb0/%1"), unit);
}

void TestBtsnoopCopy::secondCopyRemovesTheOldLogsFirst()
{
    TestUnit unit;
    unit.plug(QStringLiteral("usb0"));
    writeFile(unit.path(QStringLiteral("/media/usb0/userdata/btsnoop.log")), "old");
    writeFile(unit.path(QStringLiteral("/media/usb0/nvm/btsnoop.log")), "older");
    copyWith(QStringLiteral("shell rm /media/usb0/%1/btsnoop.log"), unit);
}

void TestBtsnoopCopy::folderWithoutLogIsKeptAsItIs()
{
    TestUnit unit;
    writeLogs(unit);
    unit.plug(QStringLiteral("usb0"));
    writeFile(unit.path(QStringLiteral("/media/usb0/nvm/other.txt")), "kept");

    copyBtsnoopLogs("/media/usb0");

    QCOMPARE(unit.journal(QStringLiteral("/^shell .*nvm/")),
             QStringList(QStringLiteral("shell cp /media/flash/nvm/btsnoop.log /media/usb0/nvm")));
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/usb0/nvm/other.txt"))), QByteArray("kept"));
}

void TestBtsnoopCopy::missingLogsLeaveTheFoldersEmpty()
{
    TestUnit unit;
    unit.plug(QStringLiteral("usb0"));

    copyBtsnoopLogs("/media/usb0");

    QCOMPARE(unit.journal(QStringLiteral("/^shell cp /")).size(), 2);
    QVERIFY(QDir(unit.path(QStringLiteral("/media/usb0/userdata"))).isEmpty());
    QVERIFY(QDir(unit.path(QStringLiteral("/media/usb0/nvm"))).isEmpty());
}

void TestBtsnoopCopy::deviceThatTheShellWouldInterpretRunsNothing()
{
    TestUnit unit;
    writeLogs(unit);
    const TraceCapture capture;

    copyBtsnoopLogs("/media/usb 0;reboot");

    QCOMPARE(unit.journal(QStringLiteral("/^shell /")), QStringList());
    QCOMPARE(
        capture.texts(),
        QStringList(QStringLiteral("device not usable in a command: \"/media/usb 0;reboot\"")));
}

void TestBtsnoopCopy::longestDeviceThatFitsIsUsed()
{
    TestUnit unit;
    writeLogs(unit);
    // "cp /media/flash/userdata/btsnoop.log " has 37 bytes, "/userdata" 9; 255 fit the buffer.
    const QByteArray device = longDevice(unit, 255 - 37 - 9);

    copyBtsnoopLogs(device);

    QCOMPARE(unit.journal(QStringLiteral("/^shell /")).size(), 8);
    QCOMPARE(readFile(unit.path(QString::fromLatin1(device) + QStringLiteral("/nvm/btsnoop.log"))),
             nvmLog());
}

void TestBtsnoopCopy::deviceOneByteTooLongRunsNothing()
{
    TestUnit unit;
    writeLogs(unit);
    const QByteArray device = longDevice(unit, 255 - 37 - 9 + 1);
    const TraceCapture capture;

    copyBtsnoopLogs(device);

    QCOMPARE(unit.journal(QStringLiteral("/^shell /")), QStringList());
    QCOMPARE(capture.texts().size(), 1);
    QVERIFY(QDir(unit.path(QString::fromLatin1(device))).isEmpty());
}

FACTORY_TEST_MAIN(TestBtsnoopCopy)
#include "tst_btsnoopcopy.moc"
