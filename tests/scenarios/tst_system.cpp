#include "headunitrun.h"
#include "knownbytes.h"

#include "support/testmain.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QtTest>

/// Whole sessions on the system control, touch check and product pages.
class TestSystem : public QObject
{
    Q_OBJECT

private slots:
    void logTreeArrivesByteForByte();
    void logsWithoutCrashDump();
    void logCopyShowsThatItRuns();
    void logCopyWithoutLogFolder();
    void logCopyToAFullStick();
    void logCopyToAWriteProtectedStick();
    void logCopyToASlowStick();
    void aSyncedLogCopySurvivesAPowerCut();
    void anUnsyncedLogCopyIsLostWithThePower();
    void logCopyWithAPulledStick();
    void stickPulledDuringTheLogCopy();
    void logCopyToAMountRootTooLongForACommand();
    void certificationIsSavedBeforeTheReboot();
    void gpsReset();
    void dabUpdateToSuccess();
    void dabUpdateToFailure();
    void dabPageLeftDuringAnUpdate();
    void dabServiceWaitsWhileTheUnitGoesDown();
    void touchCheckIsLeftByHomeOnly();
    void productReadsAfreshOnEachOpening();
};

namespace
{

const QString logFolder = QStringLiteral("/media/flash/userdata/log_service");
const QString crashDump = QStringLiteral("/media/flash/nvm/dfb_crash.dump");
const QString target = QStringLiteral("/media/usb0/QM_SYSTEMLOG");

/// 300 files in nested folders, one of 5 MiB, some empty, with blanks and quotes in names.
void writeLogTree(const HeadunitRun &run)
{
    for (int number = 0; number < 300; ++number) {
        const QString folder = QStringLiteral("/day %1/boot/%2").arg(number / 60).arg(number % 7);
        const QString name = QStringLiteral("/log file '%1'.txt").arg(number);
        const int size = number == 150 ? 5 * 1024 * 1024 : number * 37 % 4000;
        run.write(logFolder + folder + name, knownBytes(size, number));
    }
    run.write(logFolder + QStringLiteral("/top level.log"), knownBytes(100, 1));
}

/// The files below a folder with their contents, by their paths from there.
QMap<QString, QByteArray> tree(const HeadunitRun &run, const QString &unitPath)
{
    QMap<QString, QByteArray> files;
    const QDir folder(run.path(unitPath));
    QDirIterator entries(folder.path(), QDir::Files | QDir::Hidden,
                         QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (entries.hasNext()) {
        QFile file(entries.next());
        const QString path = folder.relativeFilePath(file.fileName());
        files.insert(path, file.open(QIODevice::ReadOnly) ? file.readAll() : "unreadable");
    }
    return files;
}

void writeCommand(const HeadunitRun &run, const QString &unitPath, const QByteArray &script)
{
    run.write(unitPath, script);
    QFile command(run.path(unitPath));
    QVERIFY(command.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

/// A sync that takes a second of the host's time.
void makeSyncSlow(const HeadunitRun &run)
{
    writeCommand(run, QStringLiteral("/bin/sync"), "#!/bin/sh\nsleep 1\n");
}

QImage picture(const HeadunitRun &run, const char *name)
{
    const QImage image(run.pictures() + QLatin1Char('/') + QLatin1String(name));
    return image.convertToFormat(QImage::Format_RGB32);
}

qint64 brightness(const QImage &image)
{
    qint64 sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += qGray(image.pixel(x, y));
        }
    }
    return sum;
}

// Where the page's things lie on the screen.
constexpr QRect certificationSwitch(631, 76, 80, 62);
constexpr QRect copyButton(212, 166, 140, 60);
constexpr QRect dabButton(388, 166, 140, 60);

} // namespace

void TestSystem::logTreeArrivesByteForByte()
{
    HeadunitRun run;
    writeLogTree(run);
    run.write(crashDump, knownBytes(70000, 5));
    RUN_SCENARIO(run, QStringLiteral("system-log-copy.txt"));

    QMap<QString, QByteArray> expected = tree(run, logFolder);
    QCOMPARE(expected.size(), 301);
    expected.insert(QStringLiteral("dfb_crash.dump"), knownBytes(70000, 5));
    const QMap<QString, QByteArray> copied = tree(run, target);
    QCOMPARE(copied.keys(), expected.keys());
    QVERIFY(copied == expected);
}

void TestSystem::logsWithoutCrashDump()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a/b.log"), knownBytes(3000, 2));
    RUN_SCENARIO(run, QStringLiteral("system-log-copy.txt"));
    QCOMPARE(tree(run, target), tree(run, logFolder));
}

void TestSystem::logCopyShowsThatItRuns()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a.log"), "a");
    makeSyncSlow(run);
    RUN_SCENARIO(run, QStringLiteral("system-log-copying.txt"));
    QVERIFY(picture(run, "system-log-copying.png").copy(copyButton)
            != picture(run, "system-log-copied.png").copy(copyButton));
}

void TestSystem::logCopyWithoutLogFolder()
{
    HeadunitRun run;
    run.write(crashDump, "dump");
    RUN_SCENARIO(run, QStringLiteral("system-log-without-folder.txt"));
    QVERIFY(QFileInfo(run.path(QStringLiteral("/media/usb1/QM_SYSTEMLOG"))).isDir());
    QVERIFY(!QFileInfo::exists(run.path(target)));
    QCOMPARE(tree(run, QStringLiteral("/media/usb1/QM_SYSTEMLOG")).size(), 0);
    QVERIFY(picture(run, "system-log-without-folder.png").copy(copyButton)
            != picture(run, "system-log-without-folder-storage.png").copy(copyButton));
}

void TestSystem::logCopyToAFullStick()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a.log"), knownBytes(3000, 2));
    run.write(logFolder + QStringLiteral("/b.log"), knownBytes(3000, 3));
    run.write(crashDump, "dump");
    RUN_SCENARIO(run, QStringLiteral("system-log-full-stick.txt"));
    const QMap<QString, QByteArray> copied = tree(run, target);
    for (const QByteArray &content : copied) {
        QCOMPARE(content, QByteArray());
    }
}

void TestSystem::logCopyToAWriteProtectedStick()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a.log"), knownBytes(3000, 2));
    run.write(crashDump, "dump");
    run.write(QStringLiteral("/sticks/usb0/kept"), "kept");
    RUN_SCENARIO(run, QStringLiteral("system-log-write-protected.txt"));
    QCOMPARE(tree(run, QStringLiteral("/sticks/usb0")),
             (QMap<QString, QByteArray>{{QStringLiteral("kept"), "kept"}}));
    QVERIFY(!QFileInfo::exists(run.path(QStringLiteral("/sticks/usb0/QM_SYSTEMLOG"))));
    const QImage before = picture(run, "system-log-write-protected-before.png");
    QVERIFY(!before.isNull());
    QCOMPARE(picture(run, "system-log-write-protected.png"), before);
}

void TestSystem::logCopyToASlowStick()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a.log"), knownBytes(20000, 2));
    run.write(logFolder + QStringLiteral("/b.log"), knownBytes(20000, 3));
    run.write(crashDump, "dump");
    RUN_SCENARIO(run, QStringLiteral("system-log-slow.txt"), 10);
    QCOMPARE(tree(run, target).size(), 3);
    const double begun =
        run.journalTime(QStringLiteral("shell cp -rf /media/flash/userdata/log_service//*"));
    const double done = run.journalTime(QStringLiteral("shell cp -rf /media/flash/nvm/"));
    QVERIFY(begun > 0);
    QVERIFY2(done - begun >= 40, qPrintable(QString::number(done - begun)));
    QVERIFY(picture(run, "system-log-slow-copying.png").copy(copyButton)
            != picture(run, "system-log-slow-copied.png").copy(copyButton));
}

void TestSystem::aSyncedLogCopySurvivesAPowerCut()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a.log"), "a");
    run.write(crashDump, "dump");
    RUN_SCENARIO(run, QStringLiteral("power-cut-synced.txt"));
    QCOMPARE(tree(run, target).size(), 2);
}

void TestSystem::anUnsyncedLogCopyIsLostWithThePower()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a.log"), "new");
    run.write(crashDump, knownBytes(20000, 2));
    run.write(QStringLiteral("/sticks/usb0/QM_SYSTEMLOG/a.log"), "old");
    run.write(QStringLiteral("/sticks/usb0/other.txt"), "other");
    RUN_SCENARIO(run, QStringLiteral("power-cut-unsynced.txt"), 10);
    QCOMPARE(tree(run, QStringLiteral("/sticks/usb0")),
             (QMap<QString, QByteArray>{{QStringLiteral("QM_SYSTEMLOG/a.log"), "old"},
                                        {QStringLiteral("other.txt"), "other"}}));
}

void TestSystem::logCopyWithAPulledStick()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a.log"), "a");
    RUN_SCENARIO(run, QStringLiteral("system-log-pulled.txt"));
    QVERIFY(!QFileInfo::exists(run.path(QStringLiteral("/sticks/usb0/QM_SYSTEMLOG"))));
}

void TestSystem::stickPulledDuringTheLogCopy()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a.log"), "a");
    writeCommand(run, QStringLiteral("/bin/cp"),
                 "#!/bin/sh\nsleep 1\nPATH=${PATH#*:}\nexec cp \"$@\"\n");
    RUN_SCENARIO(run, QStringLiteral("system-log-pulled-during.txt"));
    QVERIFY(QDir(run.path(QStringLiteral("/sticks/usb0/QM_SYSTEMLOG"))).isEmpty());
    QVERIFY(!QFileInfo::exists(run.path(QStringLiteral("/media/usb0"))));
}

void TestSystem::logCopyToAMountRootTooLongForACommand()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a.log"), "a");
    run.write(QStringLiteral("/slots.ini"),
              "[usb0]\nmediaType = 1\ncontroller = 0\nmountRoot = /media/" + QByteArray(100, 'x')
                  + '\n');
    RUN_SCENARIO(run, QStringLiteral("system-log-long-root.txt"));
    QCOMPARE(tree(run, QStringLiteral("/sticks/usb0")).size(), 0);
    QVERIFY(QDir(run.path(QStringLiteral("/sticks/usb0"))).isEmpty());
}

void TestSystem::certificationIsSavedBeforeTheReboot()
{
    HeadunitRun run;
    // Slow, so that the picture of the dimmed screen is taken during the unit's second.
    RUN_SCENARIO(run, QStringLiteral("certification.txt"), 0.3);
    const QImage off = picture(run, "certification-off.png");
    const QImage shade = picture(run, "certification-shade.png");
    QCOMPARE(shade.size(), QSize(800, 480));
    QVERIFY(brightness(shade) < brightness(off) * 8 / 10);
    const QImage on = picture(run, "certification-on.png");
    QVERIFY(on.copy(certificationSwitch) != off.copy(certificationSwitch));

    RUN_SCENARIO(run, QStringLiteral("certification-kept.txt"));
    QCOMPARE(picture(run, "certification-kept.png").copy(certificationSwitch),
             on.copy(certificationSwitch));
}

void TestSystem::gpsReset()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("gps-reset.txt"), 5.0);
}

void TestSystem::dabUpdateToSuccess()
{
    HeadunitRun run;
    run.write(QStringLiteral("/sticks/usb0/dab_firmware.bin"), knownBytes(100000, 9));
    RUN_SCENARIO(run, QStringLiteral("dab-update.txt"), 5.0);
    const QImage idle = picture(run, "dab-idle.png").copy(dabButton);
    const QImage running = picture(run, "dab-running.png").copy(dabButton);
    QVERIFY(idle != picture(run, "dab-idle-without-storage.png").copy(dabButton));
    QVERIFY(idle != running);
    QVERIFY(running != picture(run, "dab-ok.png").copy(dabButton));
}

void TestSystem::dabUpdateToFailure()
{
    HeadunitRun run;
    run.write(QStringLiteral("/sticks/usb1/dab_firmware.bin"), knownBytes(1000, 9));
    RUN_SCENARIO(run, QStringLiteral("dab-failure.txt"), 5.0);
}

void TestSystem::dabPageLeftDuringAnUpdate()
{
    HeadunitRun run;
    run.write(QStringLiteral("/sticks/usb0/dab_firmware.bin"), knownBytes(1000, 9));
    RUN_SCENARIO(run, QStringLiteral("dab-page-left.txt"), 5.0);
}

void TestSystem::dabServiceWaitsWhileTheUnitGoesDown()
{
    HeadunitRun run;
    run.write(logFolder + QStringLiteral("/a.log"), "a");
    makeSyncSlow(run);
    RUN_SCENARIO(run, QStringLiteral("dab-waiting.txt"));
}

void TestSystem::touchCheckIsLeftByHomeOnly()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("touch-check.txt"));
    const QRgb white = qRgb(255, 255, 255);
    const QRgb black = qRgb(0, 0, 0);
    const QRgb red = qRgb(255, 0, 0);

    const QImage fresh = picture(run, "touch-check.png");
    QCOMPARE(fresh.pixel(0, 0), black);
    QCOMPARE(fresh.pixel(799, 479), white);
    QCOMPARE(fresh.pixel(770, 450), black);
    QCOMPARE(fresh.pixel(400, 240), red);

    const QImage touched = picture(run, "touch-check-touched.png");
    QCOMPARE(touched.pixel(620, 133), red);
    QCOMPARE(touched.pixel(605, 133), red);
    QCOMPARE(touched.pixel(604, 133), white);
    QCOMPARE(touched.pixel(400, 240), black);

    QCOMPARE(picture(run, "touch-check-again.png"), fresh);
    QVERIFY(picture(run, "touch-check-left.png").pixel(799, 479) != white);
    QCOMPARE(picture(run, "touch-check-left-again.png"), picture(run, "touch-check-left.png"));
}

void TestSystem::productReadsAfreshOnEachOpening()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("product.txt"));
    QVERIFY(picture(run, "product.png") != picture(run, "product-long.png"));
}

FACTORY_TEST_GUILESS_MAIN(TestSystem)
#include "tst_system.moc"
