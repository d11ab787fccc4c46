#include "update/userupdatedialog.h"

#include "updatedesk.h"

#include "kvwidget/kviconbutton.h"
#include "service/platformcontrol.h"
#include "service/setupstridconst.h"
#include "support/testmain.h"

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <thread>

// With the unit's own slot table media type 1 is USB and media type 2 is SD, so that the dialog's
// "SD0" is the socket usb0.
class TestUserUpdateDialog : public QObject
{
    Q_OBJECT

private slots:
    void otherNumbersAskNothing();
    void answerOfAnotherThreadIsQueued();
    void versionsThatHoldPlaceMarkersComeOutUnchanged();
    void answerReplacesTheFormerOne();
    void everyDialogHearsEveryAnswer();

    void typeFourAsksForUpdateDataAsDeviceFive_data();
    void typeFourAsksForUpdateDataAsDeviceFive();
    void updateDataLongerThanThePositionIsCut();
    void okWithoutWhatItNeedsSkipsEverything_data();
    void okWithoutWhatItNeedsSkipsEverything();

    void cancelLeavesTheDialogButThePageIsUsableAgain();
};

namespace
{

KvIconButton *button(const Dialog *dialog, const char *name)
{
    return dialog->findChild<KvIconButton *>(QString::fromLatin1(name));
}

bool isOkEnabled(const Dialog *dialog)
{
    return !button(dialog, "popupview_ok")->disableState();
}

} // namespace

void TestUserUpdateDialog::otherNumbersAskNothing()
{
    Desk desk;
    const Dialog *dialog = desk.open(0);
    for (const int type : {5, -1}) {
        QCOMPARE(dialog->getDisplayString(static_cast<Dialog::DeviceType>(type)), QString());
    }
}

void TestUserUpdateDialog::answerOfAnotherThreadIsQueued()
{
    Desk desk;
    desk.plugPackage(QStringLiteral("usb1"));
    const Dialog *dialog = desk.open(1);
    // An answer counts at once, but that of another thread only on the dialog's own.
    PlatformControl *platform = PlatformControl::getInstance();
    emit platform->ChecksumVerified(1);
    QVERIFY(text(dialog).endsWith(QStringLiteral("Verify Failed")));
    std::thread([platform] { emit platform->ChecksumVerified(0); }).join();
    QVERIFY(text(dialog).endsWith(QStringLiteral("Verify Failed")));
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
    QTRY_COMPARE_WITH_TIMEOUT(text(dialog),
                              QStringLiteral("User Update via SD0?\nNewCUSTVer:1%3\n"
                                             "NewSDKVer:%1%2%4\nVerify Pass"),
                              20000);
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

FACTORY_TEST_MAIN(TestUserUpdateDialog)
#include "tst_userupdatedialog.moc"
