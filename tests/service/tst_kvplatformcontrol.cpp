#include "service/kvplatformcontrol.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

using kvplfctrl::KVPlatformControl;
using Operation = int (KVPlatformControl::*)();
Q_DECLARE_METATYPE(Operation)

class TestKvPlatformControl : public QObject
{
    Q_OBJECT

private slots:
    void thereIsOneOfAUnit();
    void operationStartsItsTest_data();
    void operationStartsItsTest();
    void stopEndsClientsAndServers();
    void refusedStartIsNegative();
};

void TestKvPlatformControl::thereIsOneOfAUnit()
{
    const TestUnit unit;
    QVERIFY(KVPlatformControl::GetInstance() != nullptr);
    QCOMPARE(KVPlatformControl::GetInstance(), KVPlatformControl::GetInstance());
}

void TestKvPlatformControl::operationStartsItsTest_data()
{
    QTest::addColumn<Operation>("operation");
    QTest::newRow("tcp server") << &KVPlatformControl::startTcpTestServer;
    QTest::newRow("udp server") << &KVPlatformControl::startUdpTestServer;
    QTest::newRow("udp client 50") << &KVPlatformControl::startUdpTestClient50;
    QTest::newRow("udp client 100") << &KVPlatformControl::startUdpTestClient100;
    QTest::newRow("tcp client") << &KVPlatformControl::startTcpTestClient;
}

void TestKvPlatformControl::operationStartsItsTest()
{
    QFETCH(Operation, operation);
    TestUnit unit;
    QCOMPARE((KVPlatformControl::GetInstance()->*operation)(), 0);
    QCOMPARE(unit.journal(),
             QStringList(QStringLiteral("ncm start ") + QLatin1String(QTest::currentDataTag())));
    QVERIFY(unit.unit().ncmTest().isRunning());
}

void TestKvPlatformControl::stopEndsClientsAndServers()
{
    TestUnit unit;
    KVPlatformControl *control = KVPlatformControl::GetInstance();
    QVERIFY(control->stopTest() < 0);
    QCOMPARE(control->startUdpTestClient50(), 0);
    QCOMPARE(control->stopTest(), 0);
    QVERIFY(!unit.unit().ncmTest().isRunning());
    QCOMPARE(control->startTcpTestServer(), 0);
    QCOMPARE(control->stopTest(), 0);
    QVERIFY(!unit.unit().ncmTest().isRunning());
}

void TestKvPlatformControl::refusedStartIsNegative()
{
    TestUnit unit;
    unit.unit().ncmTest().refuseStarts(true);
    QVERIFY(KVPlatformControl::GetInstance()->startTcpTestClient() < 0);
}

FACTORY_TEST_MAIN(TestKvPlatformControl)
#include "tst_kvplatformcontrol.moc"
