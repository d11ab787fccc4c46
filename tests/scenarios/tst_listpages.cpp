#include "headunitrun.h"

#include "support/packages.h"
#include "support/testmain.h"

#include <QtTest>

/// Sessions on the USB test page, the vendor data page and the user update dialog.
class TestListPages : public QObject
{
    Q_OBJECT

private slots:
    void allUsbChoicesAreKept();
    void eachRowFindsItsPackage();
    void sdCardWinsWhereMediaTypeOneIsSd();
    void goodPackageIsHandedOver();
    void badPackagesAreNot();
    void severalDialogsHearEveryAnswer();
    void okWithoutWhatItNeedsOnlyCloses();
};

namespace
{

const double listSpeed = 3.0;

/// Writes a package onto the slot's own stick.
void makePackage(const HeadunitRun &run, const QString &slot,
                 const QStringList &options = QStringList())
{
    makeUpdatePackage(run.path(QStringLiteral("/sticks/%1/ORRERY_PACK.BIN").arg(slot)), options,
                      QStringLiteral("on ") + slot);
}

/// The record of the user update; a new unit's table gives it the first 64 bytes.
QByteArray updateRecord(const HeadunitRun &run)
{
    return run.read(QStringLiteral("/vendor.bin")).left(64);
}

} // namespace

void TestListPages::allUsbChoicesAreKept()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("usb-choices.txt"));
    RUN_SCENARIO(run, QStringLiteral("usb-kept.txt"), listSpeed);
}

void TestListPages::eachRowFindsItsPackage()
{
    HeadunitRun run;
    for (const char *slot : {"usb0", "usb1", "sd0", "sd1"}) {
        makePackage(run, QString::fromLatin1(slot));
    }
    RUN_SCENARIO(run, QStringLiteral("update-rows.txt"));
}

void TestListPages::sdCardWinsWhereMediaTypeOneIsSd()
{
    HeadunitRun run;
    QByteArray table;
    const char *const tableRows[] = {"usb0 2 0", "usb1 2 1", "sd0 1 0", "sd1 1 1"};
    for (const char *slot : tableRows) {
        const QStringList fields = QString::fromLatin1(slot).split(QLatin1Char(' '));
        table += QStringLiteral("[%1]\nmediaType = %2\ncontroller = %3\nmountRoot = /media/%1\n")
                     .arg(fields.at(0), fields.at(1), fields.at(2))
                     .toUtf8();
    }
    run.write(QStringLiteral("/slots.ini"), table);
    makePackage(run, QStringLiteral("usb0"));
    makePackage(run, QStringLiteral("sd1"));
    RUN_SCENARIO(run, QStringLiteral("update-sd-first.txt"));
}

void TestListPages::goodPackageIsHandedOver()
{
    HeadunitRun run;
    // Another place and fewer bytes than the record of 27 has.
    run.write(QStringLiteral("/vendor.ini"),
              "[userUpdate]\nposition = 0\noffset = 8\nlength = 16\n");
    makePackage(run, QStringLiteral("usb1"));
    RUN_SCENARIO(run, QStringLiteral("update-good.txt"), listSpeed);
    QCOMPARE(run.read(QStringLiteral("/vendor.bin")).left(32),
             QByteArray(8, '\0')
                 + QByteArray("UPD1\x05\x05"
                              "en_GB/ORRE",
                              16)
                 + QByteArray(8, '\0'));
}

void TestListPages::badPackagesAreNot()
{
    HeadunitRun run;
    makePackage(run, QStringLiteral("usb0"), {QStringLiteral("--corrupt")});
    makePackage(run, QStringLiteral("usb1"),
                {QStringLiteral("--size"), QStringLiteral("20000000")});
    makePackage(run, QStringLiteral("sd0"), {QStringLiteral("--truncated")});
    RUN_SCENARIO(run, QStringLiteral("update-bad.txt"), listSpeed);
    QCOMPARE(updateRecord(run), QByteArray(64, '\0'));
}

void TestListPages::severalDialogsHearEveryAnswer()
{
    HeadunitRun run;
    makePackage(run, QStringLiteral("usb0"), {QStringLiteral("--corrupt")});
    makePackage(run, QStringLiteral("usb1"));
    RUN_SCENARIO(run, QStringLiteral("update-dialogs.txt"), listSpeed);
    QCOMPARE(updateRecord(run), QByteArray(64, '\0'));
}

void TestListPages::okWithoutWhatItNeedsOnlyCloses()
{
    HeadunitRun run;
    makePackage(run, QStringLiteral("usb0"));
    RUN_SCENARIO(run, QStringLiteral("update-skipped.txt"), listSpeed);
    QCOMPARE(updateRecord(run), QByteArray(64, '\0'));
}

FACTORY_TEST_GUILESS_MAIN(TestListPages)
#include "tst_listpages.moc"
