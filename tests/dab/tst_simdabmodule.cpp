#include "dab/sim/simdabmodule.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QThread>
#include <QtTest>

class TestSimDabModule : public QObject
{
    Q_OBJECT

private slots:
    void isFoundByTheCastOfAModule();
    void answersForTheTuner();
    void refusesASecondUpdate();
    void tellsFromTheTunersThread();
    void moduleGoesWhileItsSignalIsBeingSent();
};

void TestSimDabModule::isFoundByTheCastOfAModule()
{
    const TestUnit unit;
    const QSharedPointer<kvappframework::Module> module = QSharedPointer<SimDabModule>::create();
    const auto plugin = qSharedPointerDynamicCast<DabModulePlugin>(module);
    QVERIFY(!plugin.isNull());
    QVERIFY(plugin->getDabModule() != nullptr);
    QVERIFY(module->getReceiver() != nullptr);
}

void TestSimDabModule::answersForTheTuner()
{
    TestUnit unit;
    SimDabModule module;
    DabModule *dab = module.getDabModule();
    QCOMPARE(int(dab->m_DAB_GetCurrentStatus()), 0);
    unit.unit().dabTuner().setStatus(9);
    QCOMPARE(int(dab->m_DAB_GetCurrentStatus()), 9);
    QCOMPARE(dab->DAB_GetSdkVersion(), QStringLiteral("SDK 3.2.1")); // as in versions.ini
    QString error;
    QVERIFY(unit.unit().versions().setValue(QStringLiteral("dabSdk"), QString(), &error));
    QCOMPARE(dab->DAB_GetSdkVersion(), QString());
}

void TestSimDabModule::refusesASecondUpdate()
{
    TestUnit unit(0.1); // nothing of the update happens meanwhile
    SimDabModule module;
    DabModule *dab = module.getDabModule();
    QCOMPARE(dab->m_DAB_FwUpdate("/media/usb0"), 0);
    QCOMPARE(int(dab->m_DAB_GetCurrentStatus()), 7);
    QCOMPARE(dab->m_DAB_FwUpdate("/media/usb0"), -1);
}

void TestSimDabModule::tellsFromTheTunersThread()
{
    TestUnit unit;
    SimDabModule module;
    QAtomicPointer<QThread> thread;
    QAtomicInt code;
    connect(module.getDabModule(), &DabModule::dabMsgToOtherModule, [&](unsigned char told) {
        thread = QThread::currentThread();
        code = told;
    });
    unit.unit().dabTuner().setStatus(200);
    QTRY_COMPARE(code.loadAcquire(), 200);
    QVERIFY(thread != QThread::currentThread());
}

void TestSimDabModule::moduleGoesWhileItsSignalIsBeingSent()
{
    TestUnit unit;
    QScopedPointer<SimDabModule> module(new SimDabModule);
    QAtomicInt inside;
    QAtomicInt goOn;
    connect(module->getDabModule(), &DabModule::dabMsgToOtherModule, [&] {
        inside = 1;
        while (goOn == 0) {
            QThread::msleep(1);
        }
    });
    unit.unit().dabTuner().setStatus(8);
    QTRY_COMPARE(inside.loadAcquire(), 1);
    module.reset();
    goOn = 1;
    unit.unit().dabTuner().setStatus(9);
    QVERIFY(unit.unit().journal().waitFor(hardware::JournalPattern(QStringLiteral("dab tells 9")),
                                          0, 20000)
            >= 0);
}

FACTORY_TEST_MAIN(TestSimDabModule)
#include "tst_simdabmodule.moc"
