#include "support/testmain.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// What the two programs that make packages have in common.
class TestPackageTools : public QObject
{
    Q_OBJECT

private slots:
    void theFolderIsMade_data();
    void theFolderIsMade();
    void aWrongSizeIsRefused_data();
    void aWrongSizeIsRefused();
    void aFileThatCannotBeWrittenIsSaid();
    void theSourcesStayClean();
};

namespace
{

struct Outcome
{
    int status;
    QString error;
};

Outcome run(const QStringList &command)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("PYTHONDONTWRITEBYTECODE"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(TOOLS "/") + command.first(), command.mid(1));
    process.waitForFinished();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardError())};
}

} // namespace

void TestPackageTools::theFolderIsMade_data()
{
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<QString>("file");
    QTest::addColumn<qint64>("size");
    const QString update = QStringLiteral("make-update-package");
    const QString gps = QStringLiteral("make-gps-package");
    QTest::newRow("update") << QStringList{update, "--size", "100"} << "ORRERY_PACK.BIN"
                            << qint64(80 + 100 + 4);
    QTest::newRow("GPS") << QStringList{gps, "size-33"} << "gps_firmware.pkg" << qint64(33);
    QTest::newRow("all GPS") << QStringList{gps, "--all"} << "" << qint64(-1);
}

void TestPackageTools::theFolderIsMade()
{
    QFETCH(QStringList, command);
    QFETCH(QString, file);
    QFETCH(qint64, size);
    const QTemporaryDir folder;
    const QString slot = folder.filePath(QStringLiteral("sticks/usb0"));
    const QString path = slot + QLatin1Char('/') + file;
    const Outcome outcome = run(command + QStringList(path));
    QCOMPARE(outcome.error, QString());
    QCOMPARE(outcome.status, 0);
    if (size >= 0) {
        QCOMPARE(QFileInfo(path).size(), size);
    } else {
        QCOMPARE(QFileInfo(path + QStringLiteral("/size-33.pkg")).size(), qint64(33));
    }
}

void TestPackageTools::aWrongSizeIsRefused_data()
{
    QTest::addColumn<QString>("size");
    for (const char *size : {"abc", "-1", "1.5", "0x10", "", "1073741825"}) {
        QTest::newRow(size) << QString::fromLatin1(size);
    }
}

void TestPackageTools::aWrongSizeIsRefused()
{
    QFETCH(QString, size);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("package"));
    for (const QStringList &command :
         {QStringList{"make-update-package", "--size=" + size, file},
          QStringList{"make-gps-package", "--", "valid", file, "GNSS 1", size}}) {
        const Outcome outcome = run(command);
        QCOMPARE(outcome.status, 2);
        QVERIFY2(
            outcome.error.contains(
                QStringLiteral("\"%1\" is no number of bytes; allowed is a whole number from 0 "
                               "to 1073741824\n")
                    .arg(size)),
            qPrintable(outcome.error));
        QVERIFY(!QFileInfo::exists(file));
    }
}

void TestPackageTools::aFileThatCannotBeWrittenIsSaid()
{
    const QTemporaryDir folder;
    for (const QStringList &command : {QStringList{"make-update-package", folder.path()},
                                       QStringList{"make-gps-package", "valid", folder.path()}}) {
        const Outcome outcome = run(command);
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.error,
                 QStringLiteral("%1 cannot be written: Is a directory\n").arg(folder.path()));
    }
}

void TestPackageTools::theSourcesStayClean()
{
    QVERIFY(!QFileInfo::exists(QStringLiteral(TOOLS "/__pycache__")));
}

FACTORY_TEST_GUILESS_MAIN(TestPackageTools)
#include "tst_packagetools.moc"
