#include "update/userupdatedialog.h"

#include "updatedesk.h"

#include "support/testmain.h"

#include <QtTest>

// With the unit's own slot table media type 1 is USB and media type 2 is SD, so that the dialog's
// "SD0" is the socket usb0; a table with SD as media type 1 is used where that matters.
class TestUserUpdateDialogStorage : public QObject
{
    Q_OBJECT

private slots:
    void firstDeviceOfAControllerCounts();
    void missingStorageIsTheErrorPath();
    void typeAboveFourIsTheErrorPath();
    void inAutomaticModeTheSdCardWins_data();
    void inAutomaticModeTheSdCardWins();
    void automaticModeSkipsStorageWithoutThePackage();
    void automaticModeTakesTheLastDeviceOfAController();
    void automaticModeSkipsOtherControllers();
};

void TestUserUpdateDialogStorage::firstDeviceOfAControllerCounts()
{
    Desk desk;
    desk.useSlots({QStringLiteral("hub0 1 0"), QStringLiteral("hub1 1 0")});
    desk.unit.plug(QStringLiteral("hub1"));
    desk.unit.plug(QStringLiteral("hub0"));
    QCOMPARE(desk.open(0)->getHwString(Dialog::Sd0, "x"), QByteArray("/media/hub1/"));
}

void TestUserUpdateDialogStorage::missingStorageIsTheErrorPath()
{
    Desk desk;
    const Dialog *dialog = desk.open(0);
    desk.unit.plug(QStringLiteral("usb1"));
    for (const int type : {0, 2, 3, 4}) {
        QCOMPARE(dialog->getHwString(static_cast<Dialog::DeviceType>(type), "x"),
                 QByteArray("/error_path/"));
    }
}

void TestUserUpdateDialogStorage::typeAboveFourIsTheErrorPath()
{
    Desk desk;
    desk.plugPackage(QStringLiteral("usb0"));
    const Dialog *dialog = desk.open(0);
    for (const int type : {5, 6, 100, -1}) {
        QCOMPARE(dialog->getHwString(static_cast<Dialog::DeviceType>(type), "ORRERY_PACK.BIN"),
                 QByteArray("/error_path/"));
    }
}

void TestUserUpdateDialogStorage::inAutomaticModeTheSdCardWins_data()
{
    QTest::addColumn<QStringList>("plugged");
    QTest::addColumn<QByteArray>("root");
    QTest::newRow("SD0 before all")
        << QStringList({"usb1", "usb0", "sd1", "sd0"}) << QByteArray("/media/sd0/");
    QTest::newRow("SD1 before USB")
        << QStringList({"usb0", "usb1", "sd1"}) << QByteArray("/media/sd1/");
    QTest::newRow("USB0 before USB1")
        << QStringList({"usb1", "usb0"}) << QByteArray("/media/usb0/");
    QTest::newRow("USB1 alone") << QStringList({"usb1"}) << QByteArray("/media/usb1/");
    QTest::newRow("an SD card and a USB stick")
        << QStringList({"usb0", "sd1"}) << QByteArray("/media/sd1/");
}

void TestUserUpdateDialogStorage::inAutomaticModeTheSdCardWins()
{
    QFETCH(QStringList, plugged);
    QFETCH(QByteArray, root);
    Desk desk;
    desk.useSdFirst();
    for (const QString &slot : plugged) {
        desk.plugPackage(slot);
    }
    QCOMPARE(desk.open(4)->getHwString(Dialog::AutoDetect, "ORRERY_PACK.BIN"), root);
}

void TestUserUpdateDialogStorage::automaticModeSkipsStorageWithoutThePackage()
{
    Desk desk;
    desk.useSdFirst();
    desk.unit.plug(QStringLiteral("sd0"));
    desk.plugPackage(QStringLiteral("usb0"));
    const Dialog *dialog = desk.open(4);
    QCOMPARE(dialog->getHwString(Dialog::AutoDetect, "ORRERY_PACK.BIN"),
             QByteArray("/media/usb0/"));
    QCOMPARE(desk.unit.journal(QStringLiteral("update verify")),
             QStringList(QStringLiteral("update verify /media/usb0/ORRERY_PACK.BIN")));
}

void TestUserUpdateDialogStorage::automaticModeTakesTheLastDeviceOfAController()
{
    Desk desk;
    desk.useSlots({QStringLiteral("hub0 1 0"), QStringLiteral("hub1 1 0")});
    desk.plugPackage(QStringLiteral("hub1"));
    desk.plugPackage(QStringLiteral("hub0"));
    QCOMPARE(desk.open(4)->getHwString(Dialog::AutoDetect, "ORRERY_PACK.BIN"),
             QByteArray("/media/hub0/"));
}

void TestUserUpdateDialogStorage::automaticModeSkipsOtherControllers()
{
    Desk desk;
    desk.useSlots({QStringLiteral("hub 1 2"), QStringLiteral("usb 2 1")});
    desk.plugPackage(QStringLiteral("hub"));
    QCOMPARE(desk.open(4)->getHwString(Dialog::AutoDetect, "ORRERY_PACK.BIN"),
             QByteArray("/error_path/"));
    desk.plugPackage(QStringLiteral("usb"));
    QCOMPARE(desk.open(4)->getHwString(Dialog::AutoDetect, "ORRERY_PACK.BIN"),
             QByteArray("/media/usb/"));
}

FACTORY_TEST_MAIN(TestUserUpdateDialogStorage)
#include "tst_userupdatedialog_storage.moc"
