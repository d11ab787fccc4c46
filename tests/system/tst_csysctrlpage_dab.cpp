#include "system/csysctrlpage.h"

#include "dab/dabmodule.h"
#include "dab/simdabmodule.h"
#include "kvappframework/simmodulemanager.h"
#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

/// The system control page and the DAB service, whose thread waits for the page.
class TestCSysCtrlPageDab : public QObject
{
    Q_OBJECT

private slots:
    void faceOnOpening_data();
    void faceOnOpening();
    void storageEnablesTheIdleButton();
    void updateToSuccess();
    void updateWithoutFileFails();
    void updateFailsWhenTheStickIsPulled();
    void buttonStaysDisabledAtStatusSevenWhenStorageComesAndGoes();
    void endWithoutStorageLeavesTheButtonDisabled_data();
    void endWithoutStorageLeavesTheButtonDisabled();
    void endWithoutStorageLeavesTheButtonEnabled_data();
    void endWithoutStorageLeavesTheButtonEnabled();
    void otherCodesAreIgnored_data();
    void otherCodesAreIgnored();
    void pressAtStatusSevenDoesNothing();
    void serviceWaitsForThePage();
    void pageLeftInTheMiddleOfAnUpdate();
    void pageLeftWhileTheServiceWaits();
    void unitGoesDownWhileTheServiceWaits();
    void withoutModuleTheButtonIsOutOfUse_data();
    void withoutModuleTheButtonIsOutOfUse();
};

namespace
{

const QRect pageRect(QPoint(0, 66), QPoint(799, 477));
const QPoint dabPoint(458, 196);
const double fast = 50.0; // an update of ten seconds lasts 200 ms

const QString runningText = QStringLiteral("DAB updata ...\nSDK 3.2.1");
const QString idleText = QStringLiteral("DAB FW Updata \nSDK 3.2.1");
const QString failedText = QStringLiteral("DAB updata Fail\nPlease reboot!");
const QString okText = QStringLiteral("DAB updata ok\nPlease reboot!");
const QString formText = QStringLiteral("DAB FW Update");

struct Page
{
    Page()
        : unit(fast)
    {
    }

    void open()
    {
        page.reset();
        auto *view = new KvWidget(&unit.screen());
        view->setGeometry(0, 0, 800, 480);
        host.reset(view);
        page.reset(new CSysCtrlPage(pageRect, view));
        view->show();
    }

    void plugWithFirmware()
    {
        unit.plug(QStringLiteral("usb0"));
        writeFile(unit.path(QStringLiteral("/media/usb0/dab_firmware.bin")), QByteArray(1234, 'f'));
    }

    void pull(const char *slot)
    {
        QString error;
        QVERIFY2(unit.unit().storage().pull(QString::fromLatin1(slot), &error), qPrintable(error));
    }

    KvIconButton *button() const
    {
        return page->findChild<KvIconButton *>(QStringLiteral("dabBtn"));
    }

    hardware::DabTuner &tuner() { return unit.unit().dabTuner(); }

    /// Waits for a line of the journal without handling any event.
    bool blindlyAwait(const QString &pattern)
    {
        return unit.unit().journal().waitFor(hardware::JournalPattern(pattern), 0, 20000) >= 0;
    }

    TestUnit unit;
    QScopedPointer<KvWidget> host;
    QScopedPointer<CSysCtrlPage> page;
};

enum ModuleKind {
    NoModule,
    AnotherModule,
    ModuleWithoutTuner,
};

/// A framework's module named "dab" that is something else.
class OtherModule : public kvappframework::Module
{
public:
    QObject *getReceiver() override { return &m_receiver; }

private:
    QObject m_receiver;
};

/// The module of a unit without a tuner.
class EmptyDabModule : public DabModulePlugin
{
public:
    QObject *getReceiver() override { return &m_receiver; }
    DabModule *getDabModule() override { return nullptr; }

private:
    QObject m_receiver;
};

} // namespace

Q_DECLARE_METATYPE(ModuleKind)

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
    Page shown;
    shown.tuner().setStatus(status);
    QVERIFY(shown.blindlyAwait(QStringLiteral("dab tells")));
    if (storage) {
        shown.unit.plug(QStringLiteral("usb0"));
    }
    shown.open();
    QCOMPARE(shown.button()->displayText(), text);
    QCOMPARE(shown.button()->disableState(), disabled);
}

void TestCSysCtrlPageDab::storageEnablesTheIdleButton()
{
    Page shown;
    shown.open();
    QVERIFY(shown.button()->disableState());
    shown.unit.plug(QStringLiteral("usb0"));
    QTRY_VERIFY(!shown.button()->disableState());
    shown.pull("usb0");
    QTRY_VERIFY(shown.button()->disableState());
    QCOMPARE(shown.button()->displayText(), idleText);
}

void TestCSysCtrlPageDab::updateToSuccess()
{
    Page shown;
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
    Page shown;
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
    Page shown;
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
    Page shown;
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

void TestCSysCtrlPageDab::endWithoutStorageLeavesTheButtonDisabled_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("failed") << 8 << failedText;
    QTest::newRow("succeeded") << 9 << okText;
}

void TestCSysCtrlPageDab::endWithoutStorageLeavesTheButtonDisabled()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    Page shown;
    shown.open();
    shown.tuner().setStatus(code);
    QTRY_COMPARE(shown.button()->displayText(), text);
    QVERIFY(shown.button()->disableState());
    shown.unit.plug(QStringLiteral("usb0"));
    QTRY_VERIFY(!shown.button()->disableState());
    QCOMPARE(shown.button()->displayText(), text);
}

void TestCSysCtrlPageDab::endWithoutStorageLeavesTheButtonEnabled_data()
{
    endWithoutStorageLeavesTheButtonDisabled_data();
}

void TestCSysCtrlPageDab::endWithoutStorageLeavesTheButtonEnabled()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    Page shown;
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
    Page shown;
    shown.unit.plug(QStringLiteral("usb0"));
    shown.open();
    shown.page->doDabMsg(static_cast<unsigned char>(code));
    QCOMPARE(shown.button()->displayText(), idleText);
    QVERIFY(!shown.button()->disableState());
}

void TestCSysCtrlPageDab::pressAtStatusSevenDoesNothing()
{
    Page shown;
    shown.plugWithFirmware();
    shown.open();
    shown.tuner().setStatus(7);
    shown.page->btnReleasedSlot(QStringLiteral("idDabBtn"));
    QCOMPARE(shown.unit.journal(QStringLiteral("dab update")), QStringList());
    QCOMPARE(shown.unit.journal(QStringLiteral("dab refused")), QStringList());
    QTRY_COMPARE(shown.button()->displayText(), runningText);
}

void TestCSysCtrlPageDab::serviceWaitsForThePage()
{
    Page shown;
    shown.unit.plug(QStringLiteral("usb0"));
    shown.open();
    shown.tuner().setStatus(8);
    shown.tuner().setStatus(9);
    QVERIFY(shown.blindlyAwait(QStringLiteral("dab tells 8")));
    QTest::qSleep(50); // handles no event
    QCOMPARE(shown.unit.journal(QStringLiteral("dab tells")), QStringList("dab tells 8"));
    QTRY_COMPARE(shown.button()->displayText(), okText);
    QCOMPARE(shown.unit.journal(QStringLiteral("dab tells")),
             QStringList({"dab tells 8", "dab tells 9"}));
}

void TestCSysCtrlPageDab::pageLeftInTheMiddleOfAnUpdate()
{
    Page shown;
    shown.plugWithFirmware();
    shown.open();
    shown.tuner().setFault(hardware::DabTuner::Stalls, 40);
    shown.unit.tap(dabPoint);
    QTRY_VERIFY(shown.tuner().progress() >= 40);
    shown.page.reset();
    shown.open();
    QCOMPARE(shown.button()->displayText(), runningText);
    shown.page.reset();

    shown.tuner().setFault(hardware::DabTuner::NoFault, 0);
    QVERIFY(shown.blindlyAwait(QStringLiteral("dab tells 9")));
    shown.open();
    QCOMPARE(shown.button()->displayText(), formText);
    QVERIFY(!shown.button()->disableState());
}

void TestCSysCtrlPageDab::pageLeftWhileTheServiceWaits()
{
    Page shown;
    for (int round = 0; round < 20; ++round) {
        shown.open();
        shown.tuner().setStatus(100 + round);
        QVERIFY(shown.blindlyAwait(QStringLiteral("/^dab tells %1$/").arg(100 + round)));
        // Now the thread is about to wait, or waits already.
        if (round % 2 == 0) {
            QTest::qSleep(5);
        }
        shown.page.reset();
    }
    // The thread got through all of them.
    shown.tuner().setStatus(9);
    QVERIFY(shown.blindlyAwait(QStringLiteral("/^dab tells 9$/")));
}

void TestCSysCtrlPageDab::unitGoesDownWhileTheServiceWaits()
{
    Page shown;
    shown.open();
    shown.tuner().setStatus(7);
    QVERIFY(shown.blindlyAwait(QStringLiteral("dab tells 7")));
    QTest::qSleep(20);
    // The members' destructors do the rest: page, framework with the module, unit with the tuner.
}

void TestCSysCtrlPageDab::withoutModuleTheButtonIsOutOfUse_data()
{
    QTest::addColumn<ModuleKind>("kind");
    QTest::newRow("no module") << NoModule;
    QTest::newRow("another module") << AnotherModule;
    QTest::newRow("no tuner") << ModuleWithoutTuner;
}

void TestCSysCtrlPageDab::withoutModuleTheButtonIsOutOfUse()
{
    QFETCH(ModuleKind, kind);
    Page shown;
    shown.plugWithFirmware();
    kvappframework::SimModuleManager &modules = shown.unit.framework().modules();
    modules.remove(QStringLiteral("dab"));
    if (kind == AnotherModule) {
        modules.add(QStringLiteral("dab"), QSharedPointer<OtherModule>::create());
    } else if (kind == ModuleWithoutTuner) {
        modules.add(QStringLiteral("dab"), QSharedPointer<EmptyDabModule>::create());
    }
    shown.open();
    QCOMPARE(shown.button()->displayText(), formText);
    shown.page->btnReleasedSlot(QStringLiteral("idDabBtn"));
    shown.page->doDabMsg(8);
    QCOMPARE(shown.button()->displayText(), formText);
    QCOMPARE(shown.unit.journal(QStringLiteral("dab update")), QStringList());
}

FACTORY_TEST_MAIN(TestCSysCtrlPageDab)
#include "tst_csysctrlpage_dab.moc"
