#include "simulator/session/reportarchive.h"

#include "support/fulldisk.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <filesystem>

using namespace simulator;

class TestReportArchive : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void whatIsPackedIsUnpacked();
    void whatIsNotPacked();
    void existingFileIsKept();
    void fullDiskLeavesNoFile();
    void unpacksIntoAnEmptyFolder();
    void foldersThatAreNotEmpty_data();
    void foldersThatAreNotEmpty();
    void wrongArchives_data();
    void wrongArchives();

private:
    QString path(const QString &name) const;
    QStringList entries(const QString &folder) const;
    QString pack(const QStringList &passing = {}) const;
    QString unpack(const QString &folder) const;

    QScopedPointer<QTemporaryDir> m_folder;
};

void TestReportArchive::init()
{
    m_folder.reset(new QTemporaryDir);
    writeFile(path("unit/settings.ini"), "a=1");
    writeFile(path("unit/sticks/usb0/a name -> other"), "on a stick");
    writeFile(path("extra/report/versions.txt"), "headunit report 1\n");
}

QString TestReportArchive::path(const QString &name) const
{
    return m_folder->filePath(name);
}

QStringList TestReportArchive::entries(const QString &folder) const
{
    return QDir(path(folder))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

/// What is wrong with it; empty when nothing is.
QString TestReportArchive::pack(const QStringList &passing) const
{
    QString error;
    const bool isPacked =
        reportarchive::pack(path("unit"), passing, path("extra"), path("report.tar.xz"), &error);
    return isPacked == error.isEmpty() ? error : "an error says nothing";
}

QString TestReportArchive::unpack(const QString &folder) const
{
    QString error;
    const bool isUnpacked = reportarchive::unpack(path("report.tar.xz"), path(folder), &error);
    return isUnpacked == error.isEmpty() ? error : "an error says nothing";
}

void TestReportArchive::whatIsPackedIsUnpacked()
{
    QFile command(path("unit/bin/command"));
    writeFile(command.fileName(), "#!/bin/sh");
    QVERIFY(command.setPermissions(command.permissions() | QFileDevice::ExeOwner));
    QCOMPARE(pack(), QString());
    QCOMPARE(unpack("new/unit"), QString());
    QCOMPARE(entries("new"), QStringList("unit"));
    QCOMPARE(entries("new/unit"), (QStringList{"bin", "report", "settings.ini", "sticks"}));
    QCOMPARE(readFile(path("new/unit/settings.ini")), QByteArray("a=1"));
    QCOMPARE(readFile(path("new/unit/sticks/usb0/a name -> other")), QByteArray("on a stick"));
    QCOMPARE(readFile(path("new/unit/report/versions.txt")), QByteArray("headunit report 1\n"));
    QVERIFY(QFileInfo(path("new/unit/bin/command")).isExecutable());
}

void TestReportArchive::whatIsNotPacked()
{
    writeFile(path("unit/lock"), "1234");
    writeFile(path("unit/report/of-before.txt"), "old");
    writeFile(path("stick/secret"), "of the host");
    QVERIFY(QDir().mkpath(path("unit/media")));
    QVERIFY(QFile::link(path("stick"), path("unit/media/usb1")));
    QVERIFY(QFile::link("settings.ini", path("unit/link")));
    QCOMPARE(pack({path("unit/lock")}), QString());
    QCOMPARE(unpack("new"), QString());
    QCOMPARE(entries("new"), (QStringList{"media", "report", "settings.ini", "sticks"}));
    QCOMPARE(entries("new/media"), QStringList());
    QCOMPARE(entries("new/report"), QStringList("versions.txt"));
}

void TestReportArchive::existingFileIsKept()
{
    writeFile(path("report.tar.xz"), "precious");
    QCOMPARE(pack(), "There is a file \"" + path("report.tar.xz") + "\" already.");
    QCOMPARE(readFile(path("report.tar.xz")), QByteArray("precious"));
}

void TestReportArchive::fullDiskLeavesNoFile()
{
    const QStringList before = entries(".");
    QString error;
    {
        const FullDisk full(10);
        error = pack();
    }
    QVERIFY2(error.startsWith("The report \"" + path("report.tar.xz")
                              + "\" cannot be made: tar --create failed: "),
             qPrintable(error));
    QCOMPARE(entries("."), before);
}

void TestReportArchive::unpacksIntoAnEmptyFolder()
{
    QCOMPARE(pack(), QString());
    QVERIFY(QDir().mkdir(path("new")));
    QCOMPARE(unpack("new"), QString());
    QCOMPARE(entries("new"), (QStringList{"report", "settings.ini", "sticks"}));
}

void TestReportArchive::foldersThatAreNotEmpty_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("a file in it") << "new/file";
    QTest::newRow("a hidden one") << "new/.file";
    QTest::newRow("itself a file") << "new";
}

void TestReportArchive::foldersThatAreNotEmpty()
{
    QFETCH(QString, file);
    QCOMPARE(pack(), QString());
    writeFile(path(file), "precious");
    const QStringList before = entries(".");
    QCOMPARE(unpack("new"),
             "The unit's folder \"" + path("new")
                 + "\" is not empty; a report is unpacked into an empty or a new one.");
    QCOMPARE(readFile(path(file)), QByteArray("precious"));
    QCOMPARE(entries("."), before);
}

void TestReportArchive::wrongArchives_data()
{
    QTest::addColumn<QString>("make");
    QTest::addColumn<QString>("reason");
    const QString tar("tar -cJPf report.tar.xz -C extra ");
    QTest::newRow("missing") << "true"
                             << "tar --list failed: ";
    QTest::newRow("no archive") << "echo > report.tar.xz"
                                << "tar --list failed: ";
    QTest::newRow("cut off") << tar + "report && truncate -s -20 report.tar.xz"
                             << "tar --list failed: ";
    QTest::newRow("above it") << tar + "report ../extra/../unit/settings.ini"
                              << "\"../extra/../unit/settings.ini\" lies outside of the folder";
    QTest::newRow("in the root") << tar + "report \"$PWD/unit/settings.ini\""
                                 << "\"" + QDir::tempPath();
    QTest::newRow("a link") << "ln -s /etc extra/link && " + tar + "report link"
                            << "\"link -> /etc\" is neither file nor folder";
    QTest::newRow("a hard link")
        << "ln extra/report/versions.txt extra/other && " + tar + "report other"
        << "\"other link to report/versions.txt\" is neither file nor folder";
    QTest::newRow("a pipe") << "mkfifo extra/pipe && " + tar + "report pipe"
                            << "\"pipe\" is neither file nor folder";
    QTest::newRow("no report") << "echo a > extra/file && " + tar + "file"
                               << "it has no \"report/versions.txt\" that begins with "
                                  "\"headunit report 1\".";
    QTest::newRow("of another format")
        << "echo headunit report 2 > extra/report/versions.txt && " + tar + "report"
        << "it has no \"report/versions.txt\" that begins with \"headunit report 1\".";
}

void TestReportArchive::wrongArchives()
{
    QFETCH(QString, make);
    QFETCH(QString, reason);
    QProcess shell;
    shell.setWorkingDirectory(m_folder->path());
    shell.start("sh", {"-c", make});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.exitCode(), 0);
    QVERIFY(QDir().mkdir(path("new")));
    const QStringList before = entries(".");
    const QString error = unpack("new");
    const QString begin = "The report \"" + path("report.tar.xz") + "\" cannot be unpacked into \""
        + path("new") + "\": " + reason;
    QVERIFY2(error.startsWith(begin), qPrintable(error));
    QCOMPARE(entries("."), before);
    QCOMPARE(entries("new"), QStringList());
}

FACTORY_TEST_GUILESS_MAIN(TestReportArchive)
#include "tst_reportarchive.moc"
