#include "update/userupdatedialog.h"

#include "kvwidget/kviconbutton.h"
#include "kvwidget/popupview.h"
#include "service/platformcontrol.h"
#include "service/setupstridconst.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "support/updatepackages.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

using Dialog = UserUpdateDialog;

// With the unit's own slot table media type 1 is USB and media type 2 is SD, so that the dialog's
// "SD0" is the socket usb0; a table with SD as media type 1 is used where that matters.
class TestUserUpdateDialog : public QObject
{
    Q_OBJECT

private slots:
    void construction();
    void question_data();
    void question();

    void storageOfADevice_data();
    void storageOfADevice();
    void firstDeviceOfAControllerCounts();
    void missingStorageIsTheErrorPath();
    void typeAboveFourIsTheErrorPath();
    void inAutomaticModeTheSdCardWins_data();
    void inAutomaticModeTheSdCardWins();
    void automaticModeSkipsStorageWithoutThePackage();
    void automaticModeTakesTheLastDeviceOfAController();
    void automaticModeSkipsOtherControllers();

    void withoutThePackageOkStaysDisabled();
    void versionsAreShownWhileThePackageIsVerified();
    void versionsThatHoldPlaceMarkersComeOutUnchanged();
    void goodPackageEnablesOk();
    void badPackageEndsInVerifyFailed_data();
    void badPackageEndsInVerifyFailed();
    void packagePulledWhileVerifyingFails();
    void withoutAnAnswerOkStaysDisabled();
    void answerReplacesTheFormerOne();
    void everyDialogHearsEveryAnswer();

    void okHandsTheUpdateOver();
    void typeFourAsksForUpdateDataAsDeviceFive_data();
    void typeFourAsksForUpdateDataAsDeviceFive();
    void updateDataLongerThanThePositionIsCut();
    void okWithoutWhatItNeedsSkipsEverything_data();
    void okWithoutWhatItNeedsSkipsEverything();
    void refusedWriteStillResets();

    void cancelLeavesTheDialogButThePageIsUsableAgain();
    void timeOutLeavesTheDialogButThePageIsUsableAgain();
};

namespace
{

// A check lasts 0.15 s, and a pop-up 3 s.
const double speed = 10;
const QString package = QStringLiteral("/ORRERY_PACK.BIN");
const QRect screen(0, 0, 800, 480);

/// A unit, and dialogs on its screen.
class Desk
{
public:
    Desk()
        : unit(speed)
        , host(&unit.screen())
    {
        host.setGeometry(screen);
        host.show();
    }

    /// Plugs the slot's own stick, with a package on it.
    void plugPackage(const QString &slot, const QStringList &options = QStringList())
    {
        makeUpdatePackage(unit.path(QStringLiteral("/sticks/") + slot + package), options);
        unit.plug(slot);
    }

    Dialog *open(int type)
    {
        auto *dialog = new Dialog(screen, static_cast<Dialog::DeviceType>(type), &host);
        dialog->show();
        return dialog;
    }

    /// Uses another table of slots: "<slot> <media type> <controller>" each.
    void useSlots(const QStringList &table)
    {
        QByteArray text;
        for (const QString &row : table) {
            const QStringList fields = row.split(QLatin1Char(' '));
            text += QStringLiteral("[%1]\nmediaType = %2\ncontroller = %3\nmountRoot = /media/%1\n")
                        .arg(fields.at(0), fields.at(1), fields.at(2))
                        .toUtf8();
        }
        writeFile(unit.path(QStringLiteral("/slots.ini")), text);
        QString error;
        QVERIFY2(unit.unit().storage().open(&error), qPrintable(error));
    }

    void useSdFirst()
    {
        useSlots({QStringLiteral("sd0 1 0"), QStringLiteral("sd1 1 1"), QStringLiteral("usb0 2 0"),
                  QStringLiteral("usb1 2 1")});
    }

    QStringList handOver() const
    {
        return unit.journal(QStringLiteral("/^(update data|vendor|mcu|platform)/"));
    }

    TestUnit unit;
    QWidget host;
};

QString text(const Dialog *dialog)
{
    return dialog->findChild<PopupView *>()->text();
}

KvIconButton *button(const Dialog *dialog, const char *name)
{
    return dialog->findChild<KvIconButton *>(QString::fromLatin1(name));
}

bool isOkEnabled(const Dialog *dialog)
{
    return !button(dialog, "popupview_ok")->disableState();
}

const QString versions = QStringLiteral("NewCUSTVer:CUST 2.10.0\nNewSDKVer:SDK 7.4.1\n");

} // namespace

#define TRY_TEXT(dialog, expected) QTRY_COMPARE_WITH_TIMEOUT(text(dialog), expected, 20000)

void TestUserUpdateDialog::construction()
{
    Desk desk;
    const Dialog *dialog = desk.open(0);
    QCOMPARE(dialog->title(), QStringLiteral("setup UserUpdate"));
    QCOMPARE(dialog->geometry(), screen);
    QVERIFY(dialog->isVisible());
    const auto *popup = dialog->findChild<PopupView *>();
    QCOMPARE(popup->parentWidget(), static_cast<const QWidget *>(dialog));
    QCOMPARE(popup->popupViewId(), QStringLiteral("userdata"));
    QVERIFY(popup->isVisible());
    QCOMPARE(button(dialog, "popupview_ok")->displayText(), QStringLiteral("OK"));
    QCOMPARE(button(dialog, "popupview_cancel")->displayText(), QStringLiteral("Cancel"));
}

void TestUserUpdateDialog::question_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("question");
    QTest::newRow("SD0") << 0 << "User Update via SD0?\n";
    QTest::newRow("SD1") << 1 << "User Update via SD1?\n";
    QTest::newRow("USB0") << 2 << "User Update via USB0?\n";
    QTest::newRow("USB1") << 3 << "User Update via USB1?\n";
    QTest::newRow("automatic") << 4 << "User Update Auto Detect mode?\n";
    QTest::newRow("above") << 5 << "";
    QTest::newRow("below") << -1 << "";
}

void TestUserUpdateDialog::question()
{
    QFETCH(int, type);
    QFETCH(QString, question);
    Desk desk;
    const Dialog *dialog = desk.open(0);
    QCOMPARE(dialog->getDisplayString(static_cast<Dialog::DeviceType>(type)), question);
}

void TestUserUpdateDialog::storageOfADevice_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("root");
    QTest::newRow("SD0 is media type 1, controller 0") << 0 << QByteArray("/media/usb0/");
    QTest::newRow("SD1 is media type 1, controller 1") << 1 << QByteArray("/media/usb1/");
    QTest::newRow("USB0 is media type 2, controller 0") << 2 << QByteArray("/media/sd0/");
    QTest::newRow("USB1 is media type 2, controller 1") << 3 << QByteArray("/media/sd1/");
}

void TestUserUpdateDialog::storageOfADevice()
{
    QFETCH(int, type);
    QFETCH(QByteArray, root);
    Desk desk;
    const Dialog *dialog = desk.open(0);
    for (const char *slot : {"sd1", "usb1", "sd0", "usb0"}) {
        desk.unit.plug(QString::fromLatin1(slot));
    }
    QCOMPARE(dialog->getHwString(static_cast<Dialog::DeviceType>(type), "ORRERY_PACK.BIN"), root);
}

void TestUserUpdateDialog::firstDeviceOfAControllerCounts()
{
    Desk desk;
    desk.useSlots({QStringLiteral("hub0 1 0"), QStringLiteral("hub1 1 0")});
    desk.unit.plug(QStringLiteral("hub1"));
    desk.unit.plug(QStringLiteral("hub0"));
    QCOMPARE(desk.open(0)->getHwString(Dialog::Sd0, "x"), QByteArray("/media/hub1/"));
}

void TestUserUpdateDialog::missingStorageIsTheErrorPath()
{
    Desk desk;
    const Dialog *dialog = desk.open(0);
    desk.unit.plug(QStringLiteral("usb1"));
    for (const int type : {0, 2, 3, 4}) {
        QCOMPARE(dialog->getHwString(static_cast<Dialog::DeviceType>(type), "x"),
                 QByteArray("/error_path/"));
    }
}

void TestUserUpdateDialog::typeAboveFourIsTheErrorPath()
{
    Desk desk;
    desk.plugPackage(QStringLiteral("usb0"));
    const Dialog *dialog = desk.open(0);
    for (const int type : {5, 6, 100, -1}) {
        QCOMPARE(dialog->getHwString(static_cast<Dialog::DeviceType>(type), "ORRERY_PACK.BIN"),
                 QByteArray("/error_path/"));
    }
}

void TestUserUpdateDialog::inAutomaticModeTheSdCardWins_data()
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

void TestUserUpdateDialog::inAutomaticModeTheSdCardWins()
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

void TestUserUpdateDialog::automaticModeSkipsStorageWithoutThePackage()
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

void TestUserUpdateDialog::automaticModeTakesTheLastDeviceOfAController()
{
    Desk desk;
    desk.useSlots({QStringLiteral("hub0 1 0"), QStringLiteral("hub1 1 0")});
    desk.plugPackage(QStringLiteral("hub1"));
    desk.plugPackage(QStringLiteral("hub0"));
    QCOMPARE(desk.open(4)->getHwString(Dialog::AutoDetect, "ORRERY_PACK.BIN"),
             QByteArray("/media/hub0/"));
}

void TestUserUpdateDialog::automaticModeSkipsOtherControllers()
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

void TestUserUpdateDialog::withoutThePackageOkStaysDisabled()
{
    Desk desk;
    desk.unit.plug(QStringLiteral("usb0"));
    const Dialog *dialog = desk.open(0);
    QCOMPARE(text(dialog), QStringLiteral("User Update via SD0?\nNo ORRERY_PACK.BIN here!"));
    QVERIFY(!isOkEnabled(dialog));
    QCOMPARE(desk.unit.journal(QStringLiteral("/^update/")), QStringList());
    desk.unit.tap(button(dialog, "popupview_ok"));
    QVERIFY(dialog->isVisible());
    QCOMPARE(desk.handOver(), QStringList());
}

void TestUserUpdateDialog::versionsAreShownWhileThePackageIsVerified()
{
    Desk desk;
    desk.plugPackage(QStringLiteral("usb1"));
    const Dialog *dialog = desk.open(1);
    QCOMPARE(text(dialog),
             QStringLiteral("User Update via SD1?\n") + versions + QStringLiteral("Verifing..."));
    QVERIFY(!isOkEnabled(dialog));
    QCOMPARE(desk.unit.journal(QStringLiteral("/^update/")),
             QStringList(QStringLiteral("update verify /media/usb1/ORRERY_PACK.BIN")));
}

void TestUserUpdateDialog::versionsThatHoldPlaceMarkersComeOutUnchanged()
{
    Desk desk;
    makeUpdatePackage(desk.unit.path(QStringLiteral("/sticks/usb0") + package), {},
                      QStringLiteral("1%3"), QStringLiteral("%1%2%4"));
    desk.unit.plug(QStringLiteral("usb0"));
    const Dialog *dialog = desk.open(0);
    QCOMPARE(text(dialog),
             QStringLiteral("User Update via SD0?\nNewCUSTVer:1%3\n"
                            "NewSDKVer:%1%2%4\nVerifing..."));
    TRY_TEXT(dialog,
             QStringLiteral("User Update via SD0?\nNewCUSTVer:1%3\n"
                            "NewSDKVer:%1%2%4\nVerify Pass"));
}

void TestUserUpdateDialog::goodPackageEnablesOk()
{
    Desk desk;
    desk.plugPackage(QStringLiteral("sd0"));
    const Dialog *dialog = desk.open(2);
    TRY_TEXT(dialog,
             QStringLiteral("User Update via USB0?\n") + versions + QStringLiteral("Verify Pass"));
    QVERIFY(isOkEnabled(dialog));
}

void TestUserUpdateDialog::badPackageEndsInVerifyFailed_data()
{
    QTest::addColumn<QString>("option");
    QTest::newRow("corrupt") << "--corrupt";
    QTest::newRow("truncated") << "--truncated";
}

void TestUserUpdateDialog::badPackageEndsInVerifyFailed()
{
    QFETCH(QString, option);
    Desk desk;
    desk.plugPackage(QStringLiteral("usb0"), {option});
    const Dialog *dialog = desk.open(0);
    TRY_TEXT(dialog,
             QStringLiteral("User Update via SD0?\n") + versions + QStringLiteral("Verify Failed"));
    QVERIFY(!isOkEnabled(dialog));
    desk.unit.tap(button(dialog, "popupview_ok"));
    QCOMPARE(desk.handOver(), QStringList());
    QVERIFY(dialog->isVisible());
}

void TestUserUpdateDialog::packagePulledWhileVerifyingFails()
{
    Desk desk;
    desk.plugPackage(QStringLiteral("usb0"));
    const Dialog *dialog = desk.open(0);
    QString error;
    QVERIFY(desk.unit.unit().storage().pull(QStringLiteral("usb0"), &error));
    TRY_TEXT(dialog,
             QStringLiteral("User Update via SD0?\n") + versions + QStringLiteral("Verify Failed"));
    QVERIFY(!isOkEnabled(dialog));
}

void TestUserUpdateDialog::withoutAnAnswerOkStaysDisabled()
{
    Desk desk;
    desk.unit.unit().userUpdate().setSilent(true);
    desk.plugPackage(QStringLiteral("usb0"));
    const Dialog *dialog = desk.open(0);
    QTest::qWait(600); // Four times as long as an answer takes.
    QVERIFY(text(dialog).endsWith(QStringLiteral("Verifing...")));
    QVERIFY(!isOkEnabled(dialog));
}

void TestUserUpdateDialog::answerReplacesTheFormerOne()
{
    Desk desk;
    Dialog *dialog = desk.open(0);
    const QString stored = QStringLiteral("User Update via SD0?\nNo ORRERY_PACK.BIN here!");
    dialog->ChecksumVerified(0);
    QCOMPARE(text(dialog), stored + QStringLiteral("Verify Pass"));
    QVERIFY(isOkEnabled(dialog));
    for (const int result : {1, -1, 4}) {
        dialog->ChecksumVerified(result);
        QCOMPARE(text(dialog), stored + QStringLiteral("Verify Failed"));
        QVERIFY(!isOkEnabled(dialog));
    }
}

void TestUserUpdateDialog::everyDialogHearsEveryAnswer()
{
    Desk desk;
    desk.plugPackage(QStringLiteral("usb0"), {QStringLiteral("--corrupt")});
    desk.plugPackage(QStringLiteral("usb1"));
    const Dialog *corrupt = desk.open(0);
    const Dialog *good = desk.open(1);
    const Dialog *none = desk.open(2);
    // The service answers in the order in which it was asked.
    QTRY_VERIFY_WITH_TIMEOUT(text(good).endsWith(QStringLiteral("Verify Failed")), 20000);
    QVERIFY(text(corrupt).endsWith(QStringLiteral("Verify Failed")));
    QTRY_VERIFY_WITH_TIMEOUT(text(good).endsWith(QStringLiteral("Verify Pass")), 20000);
    QVERIFY(text(corrupt).endsWith(QStringLiteral("Verify Pass")));
    QVERIFY(isOkEnabled(corrupt));
    // It has started no verification, and so listens to none.
    QVERIFY(text(none).endsWith(QStringLiteral("No ORRERY_PACK.BIN here!")));
}

void TestUserUpdateDialog::okHandsTheUpdateOver()
{
    Desk desk;
    QSignalSpy reboot(&desk.unit.unit().mcu(), &hardware::Mcu::rebootRequested);
    desk.plugPackage(QStringLiteral("sd1"));
    const QPointer<Dialog> dialog(desk.open(3));
    QTRY_VERIFY_WITH_TIMEOUT(isOkEnabled(dialog), 20000);
    desk.unit.tap(button(dialog, "popupview_ok"));

    // The record: "UPD1", device 3, 5 letters "en_GB", "/ORRERY_PACK.BIN", at the offset 0 that
    // vendor.ini gives to position 0.
    QCOMPARE(
        desk.handOver(),
        QStringList({QStringLiteral("update data device 3 en_GB"),
                     QStringLiteral("vendor write 0 55 50 44 31 03 05 65 6E 5F 47 42 2F 4F 52 "
                                    "52 45 52 59 5F 50 41 43 4B 2E 42 49 4E"),
                     QStringLiteral("mcu FF 66 05 1B 8E 05 00 00 FF"),
                     QStringLiteral("platform software reset"), QStringLiteral("mcu reboot")}));
    QCOMPARE(reboot.size(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!dialog);
}

void TestUserUpdateDialog::typeFourAsksForUpdateDataAsDeviceFive_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("device");
    QTest::newRow("SD0") << 0 << 0;
    QTest::newRow("SD1") << 1 << 1;
    QTest::newRow("USB0") << 2 << 2;
    QTest::newRow("USB1") << 3 << 3;
    QTest::newRow("automatic") << 4 << 5;
}

void TestUserUpdateDialog::typeFourAsksForUpdateDataAsDeviceFive()
{
    QFETCH(int, type);
    QFETCH(int, device);
    Desk desk;
    desk.open(type)->popupViewOkClicked(QStringLiteral("userdata"));
    QCOMPARE(desk.unit.journal(QStringLiteral("update data")),
             QStringList(QStringLiteral("update data device %1 en_GB").arg(device)));
}

void TestUserUpdateDialog::updateDataLongerThanThePositionIsCut()
{
    Desk desk;
    const QString language(70, QLatin1Char('x'));
    desk.unit.unit().settings().setValue(SetupStrIdConst::setupSysLang, language);
    desk.open(1)->popupViewOkClicked(QString());
    // vendor.ini gives position 0 the first 64 bytes: 4 + 1 + 1, and 58 of the language's 70.
    QCOMPARE(readFile(desk.unit.path(QStringLiteral("/vendor.bin"))).left(80),
             QByteArray("UPD1\x01\x46", 6) + QByteArray(58, 'x') + QByteArray(16, '\0'));
    QVERIFY(desk.handOver().contains(QStringLiteral("mcu FF 66 05 1B 8E 05 00 00 FF")));
}

void TestUserUpdateDialog::okWithoutWhatItNeedsSkipsEverything_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("empty language") << "language";
    QTest::newRow("empty update data") << "data";
    QTest::newRow("position refused") << "position";
}

void TestUserUpdateDialog::okWithoutWhatItNeedsSkipsEverything()
{
    QFETCH(QString, missing);
    Desk desk;
    hardware::Unit &unit = desk.unit.unit();
    if (missing == QLatin1String("language")) {
        unit.settings().setValue(SetupStrIdConst::setupSysLang, QString());
    }
    unit.userUpdate().refuseData(missing == QLatin1String("data"));
    unit.vendorData().refuseLookUps(missing == QLatin1String("position"));
    const QPointer<Dialog> dialog(desk.open(0));
    dialog->popupViewOkClicked(QStringLiteral("userdata"));
    QCOMPARE(desk.unit.journal(QStringLiteral("/^(vendor write|mcu|platform)/")), QStringList());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!dialog);
}

void TestUserUpdateDialog::refusedWriteStillResets()
{
    Desk desk;
    desk.unit.unit().vendorData().refuseWrites(true);
    desk.open(0)->popupViewOkClicked(QString());
    QCOMPARE(desk.unit.journal(QStringLiteral("mcu reboot")).size(), 1);
}

void TestUserUpdateDialog::cancelLeavesTheDialogButThePageIsUsableAgain()
{
    Desk desk;
    KvIconButton below(&desk.host);
    below.setGeometry(600, 400, 100, 60);
    below.show();
    QSignalSpy clicked(&below, &KvIconButton::btnClicked);
    desk.plugPackage(QStringLiteral("usb0"));
    const QPointer<Dialog> dialog(desk.open(0));
    desk.unit.tap(&below);
    QCOMPARE(clicked.size(), 0);

    desk.unit.tap(button(dialog, "popupview_cancel"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(dialog);
    QVERIFY(!dialog->isVisible());
    desk.unit.tap(&below);
    QCOMPARE(clicked.size(), 1);

    // The answer that is still to come reaches it, and brings nothing back to the screen.
    QTRY_VERIFY_WITH_TIMEOUT(text(dialog).endsWith(QStringLiteral("Verify Pass")), 20000);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(desk.handOver(), QStringList());
}

void TestUserUpdateDialog::timeOutLeavesTheDialogButThePageIsUsableAgain()
{
    Desk desk;
    const QPointer<Dialog> dialog(desk.open(0));
    QElapsedTimer clock;
    clock.start();
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), 20000);
    QVERIFY(clock.elapsed() >= 2900);
    QVERIFY(dialog);
    QCOMPARE(desk.handOver(), QStringList());
}

FACTORY_TEST_MAIN(TestUserUpdateDialog)
#include "tst_userupdatedialog.moc"
