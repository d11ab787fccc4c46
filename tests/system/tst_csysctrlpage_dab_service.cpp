#include "system/csysctrlpage.h"

#include "dabpage.h"

#include "dab/dabmodule.h"
#include "kvappframework/sim/simmodulemanager.h"
#include "support/testmain.h"

#include <QDeadlineTimer>
#include <QtTest>

#include <atomic>
#include <memory>

/// The system control page and the DAB service, whose thread waits for the page.
class TestCSysCtrlPageDabService : public QObject
{
    Q_OBJECT

private slots:
    void serviceWaitsForThePage();
    void pageLeftInTheMiddleOfAnUpdate();
    void pageLeftWhileTheServiceWaits();
    void unitGoesDownWhileTheServiceWaits();
    void withoutModuleTheButtonIsOutOfUse_data();
    void withoutModuleTheButtonIsOutOfUse();
};

namespace
{

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

void TestCSysCtrlPageDabService::serviceWaitsForThePage()
{
    DabPage shown;
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

void TestCSysCtrlPageDabService::pageLeftInTheMiddleOfAnUpdate()
{
    DabPage shown;
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

void TestCSysCtrlPageDabService::pageLeftWhileTheServiceWaits()
{
    DabPage shown;
    // Behind the service, on the tuner's thread.
    const auto told = std::make_shared<std::atomic<int>>(0);
    connect(
        &shown.tuner(), &hardware::DabTuner::statusTold, this,
        [told](int status) { *told = status; }, Qt::DirectConnection);
    for (int round = 0; round < 20; ++round) {
        shown.open();
        shown.tuner().setStatus(100 + round);
        QVERIFY(shown.blindlyAwait(QStringLiteral("/^dab tells %1$/").arg(100 + round)));
        // Now the thread is about to wait, or waits already.
        if (round % 2 == 0) {
            QTest::qSleep(5);
        }
        shown.page.reset();
        // The thread got through: it tells the next status, and there is no page to wait for.
        shown.tuner().setStatus(200 + round);
        QVERIFY(shown.blindlyAwait(QStringLiteral("/^dab tells %1$/").arg(200 + round)));
        // Else it might find the next page, and wait for it while nothing is handled.
        const QDeadlineTimer deadline(20000);
        while (*told != 200 + round && !deadline.hasExpired()) {
            QTest::qSleep(1);
        }
        QCOMPARE(told->load(), 200 + round);
    }
}

void TestCSysCtrlPageDabService::unitGoesDownWhileTheServiceWaits()
{
    DabPage shown;
    shown.open();
    shown.tuner().setStatus(7);
    QVERIFY(shown.blindlyAwait(QStringLiteral("dab tells 7")));
    QTest::qSleep(20);
    // The members' destructors do the rest: page, framework with the module, unit with the tuner.
}

void TestCSysCtrlPageDabService::withoutModuleTheButtonIsOutOfUse_data()
{
    QTest::addColumn<ModuleKind>("kind");
    QTest::newRow("no module") << NoModule;
    QTest::newRow("another module") << AnotherModule;
    QTest::newRow("no tuner") << ModuleWithoutTuner;
}

void TestCSysCtrlPageDabService::withoutModuleTheButtonIsOutOfUse()
{
    QFETCH(ModuleKind, kind);
    DabPage shown;
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

FACTORY_TEST_MAIN(TestCSysCtrlPageDabService)
#include "tst_csysctrlpage_dab_service.moc"
