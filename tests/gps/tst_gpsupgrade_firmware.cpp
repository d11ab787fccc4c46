#include "gps/gpsupgrade.h"

#include "upgradetest.h"

#include "support/testmain.h"

#include <QtTest>

/// Upgrades that end behind the boot loader, before the new firmware runs.
class TestGpsUpgradeFirmware : public QObject, private UpgradeTest
{
    Q_OBJECT

private slots:
    void cleanup();

    void returns_data();
    void returns();
};

void TestGpsUpgradeFirmware::cleanup()
{
    switchOff();
}

void TestGpsUpgradeFirmware::returns_data()
{
    addFaultColumns();
    const int failed = -4;
    const QByteArray noFirmware = QByteArray(timeOut) + "xmodem error! upgrade failed!\n";
    addFaultRow("silence menu", failed, QByteArray("Download firmware...\n") + timeOut, hasty);
    addFaultRow("silence firmware", failed, noFirmware, hasty);
    addFaultRow("silence firmware 1", failed, noFirmware);
    addFaultRow("silence sentences", failed, timeOut);
    addFaultRow("no-rmc", failed, timeOut);
    // Only the firmware has a third block; its sender gives up, and no firmware starts.
    addFaultRow("nak 12 3", failed, timeOut, careful);
    addFaultRow("nak 12 1 firmware", failed, timeOut, careful);
    addFaultRow("nak 12 1; nak 3 1 bootloader; nak 2 2 firmware", failed, timeOut, careful);
    addFaultRow("garbage 1 firmware", failed,
                "ACK Error!\n0x7E\nFatal Error! 126\nxmodem error! upgrade failed!\n", careful);
    addFaultRow("garbage 3", failed,
                "ACK Error!\n0x7E\nFatal Error! 126\nxmodem error! upgrade failed!\n", careful);
}

void TestGpsUpgradeFirmware::returns()
{
    checkReturn();
}

FACTORY_TEST_MAIN(TestGpsUpgradeFirmware)
#include "tst_gpsupgrade_firmware.moc"
