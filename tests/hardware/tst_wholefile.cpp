#include "hardware/unit/wholefile.h"

#include "support/fulldisk.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using namespace hardware;

class TestWholeFile : public QObject
{
    Q_OBJECT

private slots:
    void makesAFile();
    void replacesAFileAndKeepsItsPermissions();
    void aFullDiskLeavesNothingHalfMade();
    void aFullDiskLeavesWhatWasThere();
    void whatAKilledProgramLeftIsRemoved();
};

void TestWholeFile::makesAFile()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("command"));
    QString reason;
    QVERIFY2(wholefile::make(file, "content", &reason, QFileDevice::ExeOwner), qPrintable(reason));
    QCOMPARE(readFile(file), QByteArray("content"));
    QVERIFY(QFile::permissions(file) & QFileDevice::ExeOwner);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("command"));
}

void TestWholeFile::replacesAFileAndKeepsItsPermissions()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("table"));
    writeFile(file, "a longer content");
    QVERIFY(QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    const QFileDevice::Permissions before = QFile::permissions(file);
    QString reason;
    QVERIFY2(wholefile::replace(file, "content", &reason), qPrintable(reason));
    QCOMPARE(readFile(file), QByteArray("content"));
    QCOMPARE(QFile::permissions(file), before);
}

void TestWholeFile::aFullDiskLeavesNothingHalfMade()
{
    const QTemporaryDir folder;
    QString reasons[2];
    {
        const FullDisk full(10);
        const QByteArray content(100, 'x');
        QVERIFY(!wholefile::make(folder.filePath(QStringLiteral("a")), content, &reasons[0]));
        QVERIFY(!wholefile::replace(folder.filePath(QStringLiteral("b")), content, &reasons[1]));
    }
    for (const QString &reason : reasons) {
        QCOMPARE(reason, QStringLiteral("File too large"));
    }
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

void TestWholeFile::aFullDiskLeavesWhatWasThere()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("table"));
    writeFile(file, "before");
    QString reason;
    {
        const FullDisk full(10);
        QVERIFY(!wholefile::replace(file, QByteArray(100, 'x'), &reason));
    }
    QCOMPARE(readFile(file), QByteArray("before"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("table"));
}

void TestWholeFile::whatAKilledProgramLeftIsRemoved()
{
    const QTemporaryDir folder;
    for (const char *name : {"table", "table.part", ".hidden.part", "apart", "table.parts"}) {
        writeFile(folder.filePath(QLatin1String(name)), "x");
    }
    QCOMPARE(wholefile::removeParts(folder.path()),
             QStringList({QStringLiteral(".hidden.part"), QStringLiteral("table.part")}));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
             QStringList({QStringLiteral("apart"), QStringLiteral("table"),
                          QStringLiteral("table.parts")}));
    QCOMPARE(wholefile::removeParts(folder.filePath(QStringLiteral("none"))), QStringList());
}

FACTORY_TEST_GUILESS_MAIN(TestWholeFile)
#include "tst_wholefile.moc"
