#include "service/kvusbmanager.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

using kv_usb::KVUsbManager;

class TestKvUsbManager : public QObject
{
    Q_OBJECT

private slots:
    void instanceIsTheOneOfVersion29();
    void otherVersionsHaveNone();
    void tellsWhatThePortsAreSetTo();
    void otherPortsHaveNoMode();
};

void TestKvUsbManager::instanceIsTheOneOfVersion29()
{
    const TestUnit unit;
    QVERIFY(KVUsbManager::GetInstance() != nullptr);
    QCOMPARE(KVUsbManager::GetInstance(), KVUsbManager::create("2.9"));
}

void TestKvUsbManager::otherVersionsHaveNone()
{
    const TestUnit unit;
    for (const char *version : {"", "2.8", "3.0", "2.90"}) {
        QVERIFY(KVUsbManager::create(version) == nullptr);
    }
}

void TestKvUsbManager::tellsWhatThePortsAreSetTo()
{
    TestUnit unit;
    KVUsbManager *manager = KVUsbManager::GetInstance();
    QCOMPARE(manager->getPortMode(0), 0);
    QCOMPARE(manager->getCertificationMode(), int('O'));
    unit.unit().usbPorts().setBcMode(0, 1);
    unit.unit().usbPorts().setBcMode(1, 2);
    unit.unit().usbPorts().setCertification('M');
    QCOMPARE(manager->getPortMode(0), 1);
    QCOMPARE(manager->getPortMode(1), 2);
    QCOMPARE(manager->getCertificationMode(), int('M'));
}

void TestKvUsbManager::otherPortsHaveNoMode()
{
    const TestUnit unit;
    QCOMPARE(KVUsbManager::GetInstance()->getPortMode(2), -1);
    QCOMPARE(KVUsbManager::GetInstance()->getPortMode(-1), -1);
}

FACTORY_TEST_MAIN(TestKvUsbManager)
#include "tst_kvusbmanager.moc"
