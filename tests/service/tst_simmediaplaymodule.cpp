#include "service/sim/simmediaplaymodule.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

class TestSimMediaplayModule : public QObject
{
    Q_OBJECT

private slots:
    void remembersAndJournalsTheTest();
    void isFoundByTheCastOfAModule();
};

void TestSimMediaplayModule::remembersAndJournalsTheTest()
{
    const TestUnit unit;
    SimMediaplayModule module;
    QCOMPARE(module.isUSBTesting(), false);
    module.getMediaplayModule()->setUSBTesting(true);
    QCOMPARE(module.isUSBTesting(), true);
    module.getMediaplayModule()->setUSBTesting(false);
    QCOMPARE(module.isUSBTesting(), false);
    QCOMPARE(unit.journal(QStringLiteral("/^mediaplay /")),
             QStringList({QStringLiteral("mediaplay usb testing 1"),
                          QStringLiteral("mediaplay usb testing 0")}));
}

void TestSimMediaplayModule::isFoundByTheCastOfAModule()
{
    const QSharedPointer<kvappframework::Module> module =
        QSharedPointer<SimMediaplayModule>::create();
    QVERIFY(!qSharedPointerDynamicCast<MediaplayModulePlugin>(module).isNull());
    QVERIFY(module->getReceiver() != nullptr);
}

FACTORY_TEST_MAIN(TestSimMediaplayModule)
#include "tst_simmediaplaymodule.moc"
