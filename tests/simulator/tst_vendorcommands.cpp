#include "simulator/commands/allcommands.h"

#include "testsimulator.h"

#include "support/testmain.h"

#include <QtTest>

/// The commands about the USB ports, the vendor data and the update service.
class TestVendorCommands : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
    void usbSaysTheModes();
    void vendorSaysTheBytes();
    void vendorFaults();
    void updateFaults();
};

void TestVendorCommands::refuses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::newRow("position") << "vendor 256"
                              << "POSITION is a whole number from 0 to 255, not \"256\"";
    QTest::newRow("no such position") << "vendor 9"
                                      << "nothing has position 9";
    QTest::newRow("vendor fault") << "vendor-fault fire"
                                  << "FAULT is look-up, write or none, not \"fire\"";
    QTest::newRow("update fault") << "update-fault fire"
                                  << "FAULT is silent, no-data or none, not \"fire\"";
}

void TestVendorCommands::refuses()
{
    QFETCH(QString, line);
    QFETCH(QString, error);
    TestSimulator unit;
    QCOMPARE(unit.errorOf(line), error);
}

void TestVendorCommands::usbSaysTheModes()
{
    TestSimulator unit;
    unit.simulator().unit().usbPorts().setBcMode(1, 2);
    unit.simulator().unit().usbPorts().setCertification('T');
    QCOMPARE(unit.run(QStringLiteral("usb")).lines,
             QStringList({QStringLiteral("port 0 CDP"), QStringLiteral("port 1 SDP"),
                          QStringLiteral("certification T")}));
}

void TestVendorCommands::vendorSaysTheBytes()
{
    // vendor.ini: position 2 has 4 bytes from 256 on.
    TestSimulator unit;
    QVERIFY(unit.simulator().unit().vendorData().write(256, QByteArray("\x01\xAB\x00\xFF", 4)));
    QCOMPARE(unit.run(QStringLiteral("vendor 2")).lines,
             QStringList(QStringLiteral("01 AB 00 FF")));
}

void TestVendorCommands::vendorFaults()
{
    TestSimulator unit;
    const hardware::VendorData &vendor = unit.simulator().unit().vendorData();
    int offset = 0;
    int length = 0;
    QCOMPARE(unit.errorOf(QStringLiteral("vendor-fault look-up")), QString());
    QVERIFY(!vendor.find(0, &offset, &length));
    QCOMPARE(unit.errorOf(QStringLiteral("vendor-fault none")), QString());
    QVERIFY(vendor.find(0, &offset, &length));
    QCOMPARE(unit.errorOf(QStringLiteral("vendor-fault write")), QString());
    QVERIFY(!unit.simulator().unit().vendorData().write(0, "x"));
}

void TestVendorCommands::updateFaults()
{
    TestSimulator unit;
    const hardware::UserUpdate &update = unit.simulator().unit().userUpdate();
    QCOMPARE(unit.errorOf(QStringLiteral("update-fault no-data")), QString());
    QVERIFY(update.data(0, QStringLiteral("en")).isEmpty());
    QCOMPARE(unit.errorOf(QStringLiteral("update-fault none")), QString());
    QVERIFY(!update.data(0, QStringLiteral("en")).isEmpty());
}

FACTORY_TEST_MAIN(TestVendorCommands)
#include "tst_vendorcommands.moc"
