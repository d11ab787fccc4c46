#include "mcu/mcumsgmodule.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

class TestMcuMsgModule : public QObject
{
    Q_OBJECT

private slots:
    void sendsTheBytes();
    void refusesNothing_data();
    void refusesNothing();
};

void TestMcuMsgModule::sendsTheBytes()
{
    TestUnit unit;
    unsigned char message[] = {0xFF, 0x66, 0x00, 0x0A, 0x80};
    QCOMPARE(McuMsgModule::sendMsgToMcu(message, 5), 5);
    QCOMPARE(unit.journal(QStringLiteral("/^mcu/")),
             QStringList(QStringLiteral("mcu FF 66 00 0A 80")));
}

void TestMcuMsgModule::refusesNothing_data()
{
    QTest::addColumn<bool>("hasBuffer");
    QTest::addColumn<int>("length");
    QTest::newRow("no buffer") << false << 4;
    QTest::newRow("no bytes") << true << 0;
    QTest::newRow("negative length") << true << -1;
}

void TestMcuMsgModule::refusesNothing()
{
    QFETCH(bool, hasBuffer);
    QFETCH(int, length);
    TestUnit unit;
    unsigned char message[] = {1, 2, 3, 4};
    QCOMPARE(McuMsgModule::sendMsgToMcu(hasBuffer ? message : nullptr, length), -1);
    QCOMPARE(unit.journal(QStringLiteral("/^mcu/")), QStringList());
}

FACTORY_TEST_MAIN(TestMcuMsgModule)
#include "tst_mcumsgmodule.moc"
