#include "gps/gpsupgrade.h"

#include "upgradetest.h"

#include "support/testmain.h"

#include <QtTest>

/// Upgrades that end before the boot loader runs.
class TestGpsUpgradeBootloader : public QObject, private UpgradeTest
{
    Q_OBJECT

private slots:
    void cleanup();

    void returns_data();
    void returns();
    void serviceThatWasNotStoppedTakesTheAnswers();
};

void TestGpsUpgradeBootloader::cleanup()
{
    switchOff();
}

void TestGpsUpgradeBootloader::returns_data()
{
    addFaultColumns();
    const int failed = -3;
    const QByteArray noBootloader = QByteArray(timeOut) + "xmodem error!\n";
    addFaultRow("silence configure", failed, QByteArray(timeOut) + '\n' + timeOut, hasty);
    addFaultRow("silence loader", failed, QByteArray(timeOut) + '\n' + timeOut, hasty);
    addFaultRow("silence bootloader", failed, noBootloader, hasty);
    addFaultRow("silence bootloader 2", failed, noBootloader, careful);
    addFaultRow("silence prompt", failed, QByteArray("Send file successful!!!\n") + timeOut,
                careful);
    addFaultRow("nak 12 1", failed, QByteArray("Retry too many times,Quit!\n") + timeOut);
    addFaultRow("garbage 1", failed, "ACK Error!\n0x7E\nFatal Error! 126\nxmodem error!\n");
}

void TestGpsUpgradeBootloader::returns()
{
    checkReturn();
}

void TestGpsUpgradeBootloader::serviceThatWasNotStoppedTakesTheAnswers()
{
    switchOn(hasty);
    m_unit->unit().gpsReceiver().setServiceReading(true);
    QCOMPARE(upgrade().result, -3);
}

FACTORY_TEST_MAIN(TestGpsUpgradeBootloader)
#include "tst_gpsupgrade_bootloader.moc"
