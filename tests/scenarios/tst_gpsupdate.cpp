#include "headunitrun.h"

#include "hardware/receiver/xmodemreceiver.h"
#include "support/packages.h"
#include "support/testmain.h"

#include <QDir>
#include <QImage>
#include <QSettings>
#include <QtEndian>
#include <QtTest>

/// The upgrade of the GPS receiver, as a technician does it.
class TestGpsUpdate : public QObject
{
    Q_OBJECT

private slots:
    void upgradesFromTwoSticks();
    void homeLeavesThePage();
    void lostLineEndsTheProcess();
    void quitEndsAnUpgradeThatHangs();
    void stickPulledDuringTheTransfer();
    void stickPulledDuringTheCheck();
    void aSlowSticksCheckTakesItsTime();
    void whatBlocksTheScreenIsKnown();
};

namespace
{

/// Too fast, and a busy host is late for the receiver's answers.
const double upgradeSpeed = 5;

void makePackage(const HeadunitRun &run, const QString &file, const QString &version, int size)
{
    makeGpsPackage(run.path(QStringLiteral("/sticks/")) + file, QStringLiteral("valid"), version,
                   size);
}

void makePackages(const HeadunitRun &run)
{
    makePackage(run, QStringLiteral("usb0/gps_bootloader.pkg"), QStringLiteral("boot 3"), 5000);
    makePackage(run, QStringLiteral("usb1/gps_firmware.pkg"), QStringLiteral("GNSS 2.5.1"), 12000);
}

/// Seconds by button and call; "" is the button's sum.
using Stalls = QMap<QString, QMap<QString, double>>;

/// What "stalls" has printed, be it as a command's answer.
Stalls stalls(const QString &text)
{
    static const QRegularExpression head(QStringLiteral("^ *(.+): (\\S+) s in "));
    static const QRegularExpression call(QStringLiteral("^ +(\\d+\\.\\d{3}) (.+)$"));
    Stalls found;
    QString by;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QRegularExpressionMatch isHead = head.match(line);
        const QRegularExpressionMatch isCall = call.match(line);
        if (isHead.hasMatch()) {
            by = isHead.captured(1);
            found[by][QString()] = isHead.captured(2).toDouble();
        } else if (isCall.hasMatch()) {
            found[by][isCall.captured(2)] = isCall.captured(1).toDouble();
        }
    }
    return found;
}

} // namespace

void TestGpsUpdate::upgradesFromTwoSticks()
{
    HeadunitRun run;
    makePackages(run);
    RUN_SCENARIO(run, QStringLiteral("gps-update.txt"), upgradeSpeed);

    QCOMPARE(run.read(QStringLiteral("/receiver/bootloader.pkg")),
             run.read(QStringLiteral("/sticks/usb0/gps_bootloader.pkg")));
    QCOMPARE(run.read(QStringLiteral("/receiver/firmware.pkg")),
             run.read(QStringLiteral("/sticks/usb1/gps_firmware.pkg")));
    const QSettings versions(run.path(QStringLiteral("/versions.ini")), QSettings::IniFormat);
    QCOMPARE(versions.value(QStringLiteral("versions/gps")).toString(),
             QStringLiteral("GNSS 2.5.1"));

    // The pop-up stays while the thread is blocked.
    const QDir pictures(run.pictures());
    const QImage updating(pictures.filePath(QStringLiteral("gps-updating.png")));
    QCOMPARE(updating.size(), QSize(800, 480));
    QCOMPARE(QImage(pictures.filePath(QStringLiteral("gps-still-updating.png"))), updating);
}

void TestGpsUpdate::homeLeavesThePage()
{
    HeadunitRun run;
    makePackages(run);
    RUN_SCENARIO(run, QStringLiteral("gps-plug.txt"), upgradeSpeed);
    RUN_SCENARIO(run, QStringLiteral("gps-home.txt"), upgradeSpeed);
}

void TestGpsUpdate::lostLineEndsTheProcess()
{
    HeadunitRun run;
    makePackages(run);
    RUN_SCENARIO(run, QStringLiteral("gps-plug.txt"), upgradeSpeed);
    const QString end = run.scenario(QStringLiteral("gps-line-lost.txt"), upgradeSpeed);
    // -5, of which the system keeps eight bits.
    QVERIFY2(end.startsWith(QLatin1String("gps-line-lost.txt ends with 251:")), qPrintable(end));
    QVERIFY2(end.contains(QLatin1String("read serial return 0, please check serial device.\n")),
             qPrintable(end));
}

void TestGpsUpdate::quitEndsAnUpgradeThatHangs()
{
    HeadunitRun run;
    makePackages(run);
    RUN_SCENARIO(run, QStringLiteral("gps-plug.txt"), upgradeSpeed);
    const QString end = run.scenario(QStringLiteral("gps-quit.txt"), upgradeSpeed);
    QVERIFY2(end.startsWith(QLatin1String("gps-quit.txt ends with 7:")), qPrintable(end));
    QVERIFY2(end.endsWith(QLatin1String(
                 "The screen is blocked by a page's work; the program ended without it.\n")),
             qPrintable(end));
    QVERIFY(!QFileInfo::exists(run.path(QStringLiteral("/lock"))));
    QVERIFY(!QFileInfo(run.path(QStringLiteral("/dev/ttyS3"))).isSymLink());
}

void TestGpsUpdate::stickPulledDuringTheTransfer()
{
    HeadunitRun run;
    makePackages(run);
    makePackage(run, QStringLiteral("usb1/gps_firmware.pkg"), QStringLiteral("GNSS 2.5.1"), 200000);
    RUN_SCENARIO(run, QStringLiteral("gps-plug.txt"), upgradeSpeed);
    RUN_SCENARIO(run, QStringLiteral("gps-pulled.txt"), upgradeSpeed);
    // What had been read until then.
    const QByteArray sent = run.read(QStringLiteral("/receiver/firmware.pkg"));
    const QByteArray whole = run.read(QStringLiteral("/sticks/usb1/gps_firmware.pkg"));
    QVERIFY2(sent.size() > 0 && sent.size() < whole.size(),
             qPrintable(QString::number(sent.size())));
    QVERIFY(whole.startsWith(sent));
}

void TestGpsUpdate::stickPulledDuringTheCheck()
{
    HeadunitRun run;
    makePackages(run);
    // Nothing but zero bytes, a gigabyte of them, which takes the check long enough.
    char header[32] = {};
    const quint32 length = 1 << 30;
    qToLittleEndian(length, header + 12);
    qToLittleEndian(hardware::xmodemCrc(header, 28), header + 28);
    run.write(QStringLiteral("/sticks/usb0/gps_bootloader.pkg"), QByteArray(header, sizeof header));
    QVERIFY(QFile::resize(run.path(QStringLiteral("/sticks/usb0/gps_bootloader.pkg")),
                          qint64(length) + qint64(sizeof header)));
    RUN_SCENARIO(run, QStringLiteral("gps-plug.txt"), upgradeSpeed);
    RUN_SCENARIO(run, QStringLiteral("gps-pulled-check.txt"), upgradeSpeed);
}

void TestGpsUpdate::aSlowSticksCheckTakesItsTime()
{
    HeadunitRun run;
    makePackages(run);
    RUN_SCENARIO(run, QStringLiteral("gps-slow.txt"), upgradeSpeed);
    const double begun =
        run.journalTime(QStringLiteral("gate fopen(\"/media/usb0/gps_bootloader.pkg\""));
    const double done =
        run.journalTime(QStringLiteral("gate fopen(\"/media/usb1/gps_firmware.pkg\""));
    QVERIFY(begun > 0);
    QVERIFY2(done - begun >= 5, qPrintable(QString::number(done - begun)));
}

void TestGpsUpdate::whatBlocksTheScreenIsKnown()
{
    HeadunitRun run;
    makePackages(run);
    const HeadunitRun::End end = run.start(
        {QStringLiteral("--speed"), QString::number(upgradeSpeed), QStringLiteral("--script"),
         HeadunitRun::script(QStringLiteral("stalls.txt")), QStringLiteral("--stalls")});
    QVERIFY2(end.status == 0, qPrintable(end.error));
    const int beginning = end.output.indexOf(QLatin1String("\nidUpdateBtn: "));
    const Stalls calls = stalls(end.output.left(beginning));
    const Stalls blocked = stalls(end.output.mid(beginning));

    const double eyePage = blocked[QStringLiteral("usbeye")][QStringLiteral("usleep")];
    QVERIFY2(eyePage >= 0.5 && eyePage < 0.6, qPrintable(end.output));
    const double certification = blocked["idCertification"]["sleep"];
    QVERIFY2(certification >= 1 && certification < 1.2, qPrintable(end.output));
    // Three seconds ahead of the upgrade, two in it.
    const double upgrade = blocked["idUpdateBtn"]["sleep"];
    QVERIFY2(upgrade >= 5 && upgrade < 5.5, qPrintable(end.output));
    for (const char *call : {"", "select", "usleep", "system sync"}) {
        QVERIFY2(blocked["idUpdateBtn"].contains(call), call);
    }
    // The second that the check waits is of another thread.
    QVERIFY2(!calls["gps"].contains("sleep"), qPrintable(end.output));
    QStringList commands = calls["ncmtest"].keys();
    commands.removeAll("rest");
    QCOMPARE(commands,
             QStringList({"", "system echo 0 > /proc/sys/kernel/printk", "system killall as_server",
                          "system logset ALOG_OUTPUT n"}));
}

FACTORY_TEST_GUILESS_MAIN(TestGpsUpdate)
#include "tst_gpsupdate.moc"
