#include "system/csysctrlpage.h"

#include "dabpage.h"

#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"

#include <QtTest>

/// The system control page and the DAB service, whose thread waits for the page.
class TestCSysCtrlPageDab : public QObject
{
    Q_OBJECT

private slots:
    void faceOnOpening_data();
    void faceOnOpening();
    void updateToSuccess();
    void updateWithoutFileFails();
    void updateFailsWhenTheStickIsPulled();
    void buttonStaysDisabledAtStatusSevenWhenStorageComesAndGoes();
    void endWithoutStorageLeavesTheButtonEnabled_data();
    void endWithoutStorageLeavesTheButtonEnabled();
    void otherCodesAreIgnored_data();
    void otherCodesAreIgnored();
    void pressAtStatusSevenDoesNothing();
};

namespace
{

const QString idleText = QStringLiteral("DAB FW Updata \nSDK 3.2.1");
const QString failedText = QStringLiteral("DAB updata Fail\nPlease reboot!");

} // namespace

void TestCSysCtrlPageDab::faceOnOpening_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("storage");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("disabled");
    QTest::newRow("idle") << 0 << false << idleText << true;
    QTest::newRow("idle, storage") << 0 << true << idleText << false;
    QTest::newRow("running") << 7 << false << runningText << true;
    QTest::newRow("running, storage") << 7 << true << runningText << true;
    QTest::newRow("failed") << 8 << false << formText << true;
    QTest::newRow("failed, storage") << 8 << true << formText << false;
    QTest::newRow("succeeded") << 9 << false << formText << true;
    QTest::newRow("succeeded, storage") << 9 << true << formText << false;
    QTest::newRow("unknown, storage") << 200 << true << idleText << false;
}

void TestCSysCtrlPageDab::faceOnOpening()
{
    QFETCH(int, status);
    QFETCH(bool, storage);
    QFETCH(QString, text);
    QFETCH(bool, disabled);
    DabPage shown;
    shown.tuner().setStatus(status);
    QVERIFY(shown.blindlyAwait(QStringLiteral("dab tells")));
    if (storage) {
        shown.unit.plug(QStringLiteral("usb0"));
    }
    shown.open();
    QCOMPARE(shown.button()->displayText(), text);
    QCOMPARE(shown.button()->disableState(), disabled);
}

void TestCSysCtrlPageDab::updateToSuccess()
{
    DabPage shown;
    shown.plugWithFirmware();
    shown.open();
    // Nothing is handled between the press and the look at what it did.
    shown.page->btnReleasedSlot(QStringLiteral("idDabBtn"));
    QCOMPARE(shown.button()->displayText(), runningText);
    QVERIFY(shown.button()->disableState());

    QTRY_COMPARE(shown.button()->displayText(), okText);
    QVERIFY(!shown.button()->disableState());
    QCOMPARE(shown.unit.journal(QStringLiteral("/^dab (update|tells)/")),
             QStringList({"dab update /media/usb0/dab_firmware.bin", "dab tells 7",
                          "dab update ok, 1234 bytes", "dab tells 9"}));
    QCOMPARE(shown.unit.journal(QStringLiteral("dab progress")).size(), 10);
}

void TestCSysCtrlPageDab::updateWithoutFileFails()
{
    DabPage shown;
    shown.unit.plug(QStringLiteral("usb0"));
    shown.open();
    shown.unit.tap(dabPoint);
    QTRY_COMPARE(shown.button()->displayText(), failedText);
    QVERIFY(!shown.button()->disableState());

    // It may be tried again.
    writeFile(shown.unit.path(QStringLiteral("/media/usb0/dab_firmware.bin")), "f");
    shown.unit.tap(dabPoint);
    QTRY_COMPARE(shown.button()->displayText(), okText);
}

void TestCSysCtrlPageDab::updateFailsWhenTheStickIsPulled()
{
    DabPage shown;
    shown.plugWithFirmware();
    shown.open();
    shown.tuner().setFault(hardware::DabTuner::Stalls, 30);
    shown.unit.tap(dabPoint);
    QTRY_VERIFY(shown.tuner().progress() >= 30);
    shown.pull("usb0");
    shown.tuner().setFault(hardware::DabTuner::NoFault, 0);
    QTRY_COMPARE(shown.button()->displayText(), failedText);
    QVERIFY(shown.button()->disableState());
}

void TestCSysCtrlPageDab::buttonStaysDisabledAtStatusSevenWhenStorageComesAndGoes()
{
    DabPage shown;
    shown.plugWithFirmware();
    shown.open();
    shown.tuner().setFault(hardware::DabTuner::Stalls, 0);
    shown.unit.tap(dabPoint);
    QCOMPARE(shown.tuner().status(), 7);

    for (int round = 0; round < 2; ++round) {
        shown.pull("usb0");
        QTRY_VERIFY(
            shown.page->findChild<KvIconButton *>(QStringLiteral("copyBtn"))->disableState());
        QVERIFY(shown.button()->disableState());
        shown.unit.plug(QStringLiteral("usb0"));
        QTRY_VERIFY(
            !shown.page->findChild<KvIconButton *>(QStringLiteral("copyBtn"))->disableState());
        QVERIFY(shown.button()->disableState());
        QCOMPARE(shown.button()->displayText(), runningText);
    }

    shown.tuner().setFault(hardware::DabTuner::NoFault, 0);
    QTRY_COMPARE(shown.button()->displayText(), okText);
    QVERIFY(!shown.button()->disableState());
}

void TestCSysCtrlPageDab::endWithoutStorageLeavesTheButtonEnabled_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("failed") << 8 << failedText;
    QTest::newRow("succeeded") << 9 << okText;
}

void TestCSysCtrlPageDab::endWithoutStorageLeavesTheButtonEnabled()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    DabPage shown;
    shown.unit.plug(QStringLiteral("usb0"));
    shown.open();
    // An update that the page is not told of keeps the button as it is when the storage goes.
    shown.tuner().setFault(hardware::DabTuner::IsMute, 0);
    shown.tuner().setStatus(7);
    shown.pull("usb0");
    QTRY_VERIFY(shown.page->findChild<KvIconButton *>(QStringLiteral("copyBtn"))->disableState());
    QVERIFY(!shown.button()->disableState());

    shown.tuner().setFault(hardware::DabTuner::NoFault, 0);
    shown.tuner().setStatus(code);
    QTRY_COMPARE(shown.button()->displayText(), text);
    QVERIFY(!shown.button()->disableState());
}

void TestCSysCtrlPageDab::otherCodesAreIgnored_data()
{
    QTest::addColumn<int>("code");
    for (int code : {0, 1, 6, 10, 255}) {
        QTest::newRow(qPrintable(QString::number(code))) << code;
    }
}

void TestCSysCtrlPageDab::otherCodesAreIgnored()
{
    QFETCH(int, code);
    DabPage shown;
    shown.unit.plug(QStringLiteral("usb0"));
    shown.open();
    shown.page->doDabMsg(static_cast<unsigned char>(code));
    QCOMPARE(shown.button()->displayText(), idleText);
    QVERIFY(!shown.button()->disableState());
}

void TestCSysCtrlPageDab::pressAtStatusSevenDoesNothing()
{
    DabPage shown;
    shown.plugWithFirmware();
    shown.open();
    shown.tuner().setStatus(7);
    shown.page->btnReleasedSlot(QStringLiteral("idDabBtn"));
    QCOMPARE(shown.unit.journal(QStringLiteral("dab update")), QStringList());
    QCOMPARE(shown.unit.journal(QStringLiteral("dab refused")), QStringList());
    QTRY_COMPARE(shown.button()->displayText(), runningText);
}

FACTORY_TEST_MAIN(TestCSysCtrlPageDab)
#include "tst_csysctrlpage_dab.moc"
