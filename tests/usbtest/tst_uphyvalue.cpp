#include "usbtest/uphyvalue.h"

#include "support/testmain.h"

#include <QtTest>

class TestUphyValue : public QObject
{
    Q_OBJECT

private slots:
    void swingStep_data();
    void swingStep();
    void swingNumber_data();
    void swingNumber();
    void disconnectStep_data();
    void disconnectStep();
    void disconnectDigits_data();
    void disconnectDigits();
};

void TestUphyValue::swingStep_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("up");
    QTest::addColumn<int>("down");
    QTest::newRow("plus zero") << 0x40 << 0x41 << 0x60;
    QTest::newRow("minus zero") << 0x60 << 0x40 << 0x61;
    QTest::newRow("+1") << 0x41 << 0x42 << 0x40;
    QTest::newRow("+30") << 0x5E << 0x5F << 0x5D;
    QTest::newRow("+31, the end") << 0x5F << 0x5F << 0x5E;
    QTest::newRow("-1") << 0x61 << 0x60 << 0x62;
    QTest::newRow("-30") << 0x7E << 0x7D << 0x7F;
    QTest::newRow("-31, the end") << 0x7F << 0x7E << 0x7F;
    QTest::newRow("0, never set") << 0 << 0x40 << 0x60;
    QTest::newRow("1") << 1 << 1 << 1;
    QTest::newRow("0x3F") << 0x3F << 0x3F << 0x3F;
    QTest::newRow("0x80") << 0x80 << 0x80 << 0x80;
    QTest::newRow("0xFF") << 0xFF << 0xFF << 0xFF;
    QTest::newRow("negative") << -1 << -1 << -1;
}

void TestUphyValue::swingStep()
{
    QFETCH(int, value);
    QTEST(uphyvalue::swingUp(value), "up");
    QTEST(uphyvalue::swingDown(value), "down");
}

void TestUphyValue::swingNumber_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("number");
    QTest::newRow("plus zero") << 0x40 << QStringLiteral("0");
    QTest::newRow("+1") << 0x41 << QStringLiteral("1");
    QTest::newRow("+31") << 0x5F << QStringLiteral("31");
    QTest::newRow("minus zero") << 0x60 << QString();
    QTest::newRow("-1") << 0x61 << QStringLiteral("-1");
    QTest::newRow("-31") << 0x7F << QStringLiteral("-31");
    QTest::newRow("below") << 0x3F << QString();
    QTest::newRow("above") << 0x80 << QString();
    QTest::newRow("0") << 0 << QString();
}

void TestUphyValue::swingNumber()
{
    QFETCH(int, value);
    QTEST(uphyvalue::swingNumber(value), "number");
    QCOMPARE(uphyvalue::isMinusZero(value), value == 0x60);
}

void TestUphyValue::disconnectStep_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("up");
    QTest::addColumn<int>("down");
    QTest::newRow("0") << 0 << 1 << 0;
    QTest::newRow("1") << 1 << 2 << 0;
    QTest::newRow("30") << 30 << 31 << 29;
    QTest::newRow("31") << 31 << 31 << 30;
    QTest::newRow("upper bits, low end") << 0xA5E0 << 0xA5E1 << 0xA5E0;
    QTest::newRow("upper bits, high end") << 0xA5FF << 0xA5FF << 0xA5FE;
    QTest::newRow("top bit, low end") << int(0xFFFFFFE0) << int(0xFFFFFFE1) << int(0xFFFFFFE0);
    QTest::newRow("all ones") << -1 << -1 << -2;
}

void TestUphyValue::disconnectStep()
{
    QFETCH(int, value);
    QTEST(uphyvalue::disconnectUp(value), "up");
    QTEST(uphyvalue::disconnectDown(value), "down");
}

void TestUphyValue::disconnectDigits_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("digits");
    QTest::newRow("0") << 0 << QStringLiteral("0");
    QTest::newRow("31") << 31 << QStringLiteral("1f");
    QTest::newRow("no sign") << -1 << QStringLiteral("ffffffff");
    QTest::newRow("lower case") << 0xABC << QStringLiteral("abc");
}

void TestUphyValue::disconnectDigits()
{
    QFETCH(int, value);
    QTEST(uphyvalue::disconnectDigits(value), "digits");
}

FACTORY_TEST_GUILESS_MAIN(TestUphyValue)
#include "tst_uphyvalue.moc"
