#include "headunitrun.h"

#include "support/packages.h"
#include "support/testmain.h"

#include <QFile>
#include <QtTest>

#include <algorithm>

/// Pages that are left, or lost with a restart, at each moment of the work that goes on beside
/// them; in the end the same work is done in peace.
class TestPageLeft : public QObject
{
    Q_OBJECT

private slots:
    void goesOn_data();
    void goesOn();
};

namespace
{

const double speed = 25;

/// Milliseconds of the unit into the work: close together while things are being started, then
/// until after its end.
const int moments[] = {0, 1, 2, 4, 8, 16, 32, 64, 125, 250, 500, 750, 1000, 1100, 1500, 2500, 4000};

QStringList withMoments(const QStringList &begin, const QStringList &leave)
{
    QStringList lines;
    for (const int moment : moments) {
        lines += begin;
        lines += QStringLiteral("wait %1").arg(moment);
        lines += leave;
    }
    return lines;
}

} // namespace

void TestPageLeft::goesOn_data()
{
    QTest::addColumn<QStringList>("begin");
    QTest::addColumn<QStringList>("leave");
    QTest::addColumn<QStringList>("inPeace");
    QTest::addColumn<QString>("line"); // that each round writes
    const auto row = [](const char *name, const QStringList &begin, const QStringList &leave,
                        const QStringList &inPeace, const char *line) {
        QTest::newRow(name) << begin << leave << begin + inPeace << QString(line);
    };
    const QStringList home{"key HOME", "see \"Simulated head unit\"", "key FACTORY", "see Factory"};
    const QStringList back{"press return", "see Factory"};
    const QStringList restart{"reboot", "expect \"unit booted\" 200000", "see Factory 200000"};

    // A window of its own, which HOME leaves where it is.
    const QStringList verification{"press gps", "see \"/Verifying|verified/\""};
    const QStringList cancelled{"see \"Firmware verified Success\" 200000", "press idCancelBtn",
                                "see Factory"};
    const char verified[] = "threads start threadGpsUpdateId";
    row("verification: HOME", verification, QStringList{"key HOME", "key FACTORY"} + cancelled,
        cancelled, verified);
    row("verification: restart", verification, restart, cancelled, verified);
    row("verification: pull and restart", verification,
        QStringList{"pull usb0"} + restart + QStringList{"plug usb0"}, cancelled, verified);

    const QStringList check{"press vendordata", "see \"VendorData Set\"", "tap 200 439"};
    const QStringList checked{"see \"Verify Pass\" 200000", "press popupview_cancel"};
    row("check: HOME", check, home, checked, "update verify /media/usb0");
    row("check: restart", check, restart, checked, "update verify /media/usb0");

    const QStringList tuner{"press sysCtrl", "see \"System Control\"", "press idDabBtn"};
    const QStringList updated{"expect \"dab update ok\" 600000"};
    const QStringList tuned = updated + QStringList{"see \"/^DAB updata ok/\""};
    row("tuner: return", tuner, back + updated, tuned, "dab update /media/usb0");
    row("tuner: HOME", tuner, home + updated, tuned, "dab update /media/usb0");
    row("tuner: restart", tuner, restart, tuned, "dab update /media/usb0");

    const QStringList sensor{"als-curve 100", "press als", "see \"ALS Test\""};
    const QStringList sensed{"wait 500", "als-curve 0", "press return", "see Factory"};
    const char opened[] = "asked CALSDevice::getCirticalValue(true)";
    row("sensor: return", sensor, back, sensed, opened);
    row("sensor: HOME", sensor, home, sensed, opened);
    row("sensor: restart", sensor, restart, sensed, opened);

    const QStringList throughput{"press ncmtest", "see \"NCM Test\"", "press C_TCP"};
    const QStringList stopped{"press C_STOP", "expect \"ncm ended tcp client\"", "press return"};
    row("throughput: return", throughput, back, stopped, "ncm start tcp client");
    row("throughput: HOME", throughput, home, stopped, "ncm start tcp client");
    row("throughput: restart", throughput, restart, stopped, "ncm start tcp client");
}

void TestPageLeft::goesOn()
{
    QFETCH(QStringList, begin);
    QFETCH(QStringList, leave);
    QFETCH(QStringList, inPeace);
    QFETCH(QString, line);
    HeadunitRun run;
    run.write("/sticks/usb0/dab_firmware.bin", QByteArray(100000, 'x'));
    makeGpsPackages(run.path("/sticks/usb0"), 5000, 60000);
    makeUpdatePackage(run.path("/sticks/usb0/ORRERY_PACK.BIN"));
    const QStringList script = QStringList{"plug usb0", "key FACTORY", "see Factory"}
        + withMoments(begin, leave) + inPeace;
    run.write("/script", script.join('\n').toUtf8() + '\n');
    RUN_SCENARIO(run, run.path("/script"), speed);

    const QByteArray journal = run.read("/journal.log");
    const int rounds = int(std::size(moments)) + 1;
    QVERIFY2(journal.count(line.toUtf8()) >= rounds, journal.right(3000));
}

FACTORY_TEST_GUILESS_MAIN(TestPageLeft)
#include "tst_pageleft.moc"
