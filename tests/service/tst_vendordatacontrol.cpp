#include "service/vendordatacontrol.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

class TestVendorDataControl : public QObject
{
    Q_OBJECT

private slots:
    void placesAreThoseOfTheTable();
    void refusedLookUpKeepsTheArguments();
    void savesAString();
    void savesIntegers();
    void refusesMoreThanTheItemHolds();
    void refusedWriteIsReported();
};

void TestVendorDataControl::placesAreThoseOfTheTable()
{
    const TestUnit unit;
    int offset = -1;
    int length = -1;
    QCOMPARE(VendorDataControl::getVendorPosOffset(VendorDataControl::VendorPos(5), offset, length),
             0);
    QCOMPARE(offset, 268);
    QCOMPARE(length, 4);
}

void TestVendorDataControl::refusedLookUpKeepsTheArguments()
{
    TestUnit unit;
    unit.unit().vendorData().refuseLookUps(true);
    int offset = 5;
    int length = 6;
    QVERIFY(VendorDataControl::getVendorPosOffset(VendorDataControl::VendorPos(0), offset, length)
            != 0);
    QCOMPARE(offset, 5);
    QCOMPARE(length, 6);
}

void TestVendorDataControl::savesAString()
{
    TestUnit unit;
    char data[] = {'a', '\0', 'b'};
    QCOMPARE(VendorDataControl::saveVendorDataString(data, 2, 3), 0);
    QCOMPARE(unit.unit().vendorData().item(0).left(6), QByteArray("\0\0a\0b\0", 6));
    QVERIFY(VendorDataControl::saveVendorDataString(nullptr, 2, 3) != 0);
    QVERIFY(VendorDataControl::saveVendorDataString(data, 2, -1) != 0);
}

void TestVendorDataControl::savesIntegers()
{
    TestUnit unit;
    int value = -2;
    QCOMPARE(VendorDataControl::saveVendorDataInt(&value, 1, 256, 4), 0);
    // Two's complement, low byte first.
    QCOMPARE(unit.unit().vendorData().item(2), QByteArray("\xFE\xFF\xFF\xFF", 4));
}

void TestVendorDataControl::refusesMoreThanTheItemHolds()
{
    const TestUnit unit;
    int values[] = {1, 2};
    QVERIFY(VendorDataControl::saveVendorDataInt(values, 2, 256, 4) != 0);
    QVERIFY(VendorDataControl::saveVendorDataInt(nullptr, 1, 256, 4) != 0);
    QCOMPARE(unit.journal(QStringLiteral("/^vendor write/")), QStringList());
}

void TestVendorDataControl::refusedWriteIsReported()
{
    TestUnit unit;
    unit.unit().vendorData().refuseWrites(true);
    int value = 1;
    QVERIFY(VendorDataControl::saveVendorDataInt(&value, 1, 256, 4) != 0);
}

FACTORY_TEST_MAIN(TestVendorDataControl)
#include "tst_vendordatacontrol.moc"
