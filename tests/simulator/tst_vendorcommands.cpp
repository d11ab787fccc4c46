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
    void usbSetsTheModes();
    void vendorChangesBytes();
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
    const QString fourBytes = "BYTES is 1 to 4 pairs of hexadecimal digits, not \"%1\"";
    QTest::newRow("too many bytes") << "vendor 2 0102030405" << fourBytes.arg("0102030405");
    QTest::newRow("half a byte") << "vendor 2 012" << fourBytes.arg("012");
    QTest::newRow("no hexadecimal") << "vendor 2 0x01" << fourBytes.arg("0x01");
    QTest::newRow("no byte") << "vendor 2 ''" << fourBytes.arg("");
    QTest::newRow("bytes of nothing") << "vendor 9 01"
                                      << "nothing has position 9";
    QTest::newRow("port") << "usb 2 CDP"
                          << "PORT is a whole number from 0 to 1, not \"2\"; or \"certification\"";
    QTest::newRow("port's mode") << "usb 1 cdp"
                                 << "the mode is one of CDP, DCP, SDP, not \"cdp\"";
    QTest::newRow("port without a mode") << "usb 1"
                                         << "the mode is one of CDP, DCP, SDP, not \"\"";
    QTest::newRow("certification") << "usb certification X"
                                   << "the mode is one of O, T, M, not \"X\"";
    QTest::newRow("no such position") << "vendor 9"
                                      << "nothing has position 9";
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

void TestVendorCommands::usbSetsTheModes()
{
    TestSimulator unit;
    for (const char *line : {"usb 0 SDP", "usb 1 DCP", "usb certification M"}) {
        QCOMPARE(unit.errorOf(line), QString());
    }
    QCOMPARE(unit.run("usb").lines, (QStringList{"port 0 SDP", "port 1 DCP", "certification M"}));
    QCOMPARE(unit.journal().lines("usb"),
             (QStringList{"usb port 0 SDP", "usb port 1 DCP", "usb certification M"}));
}

void TestVendorCommands::vendorChangesBytes()
{
    TestSimulator unit;
    QCOMPARE(unit.errorOf("vendor 2 01020304"), QString());
    QCOMPARE(unit.errorOf("vendor 2 'ab CD'"), QString());
    QCOMPARE(unit.run("vendor 2").lines, QStringList{"AB CD 03 04"});
    const QStringList all = unit.run("vendor").lines;
    QCOMPARE(all.size(), unit.simulator().unit().vendorData().items().size());
    QCOMPARE(all.filter("AB CD 03 04"), QStringList{"2 panelBrightness AB CD 03 04"});

    QCOMPARE(unit.errorOf("fault vendor write"), QString());
    QCOMPARE(unit.errorOf("vendor 2 01"), QString("the vendor data refuses writes"));
    QCOMPARE(unit.errorOf("fault vendor look-up"), QString());
    QCOMPARE(unit.errorOf("vendor 2 01"), QString("the vendor data refuses look-ups"));
    QCOMPARE(unit.run("vendor 2").lines, QStringList{"AB CD 03 04"});
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
    QCOMPARE(unit.errorOf(QStringLiteral("fault vendor look-up")), QString());
    QVERIFY(!vendor.find(0, &offset, &length));
    QCOMPARE(unit.errorOf(QStringLiteral("fault vendor none")), QString());
    QVERIFY(vendor.find(0, &offset, &length));
    QCOMPARE(unit.errorOf(QStringLiteral("fault vendor write")), QString());
    QVERIFY(!unit.simulator().unit().vendorData().write(0, "x"));
}

void TestVendorCommands::updateFaults()
{
    TestSimulator unit;
    const hardware::UserUpdate &update = unit.simulator().unit().userUpdate();
    QCOMPARE(unit.errorOf(QStringLiteral("fault update no-data")), QString());
    QVERIFY(update.data(0, QStringLiteral("en")).isEmpty());
    QCOMPARE(unit.errorOf(QStringLiteral("fault update none")), QString());
    QVERIFY(!update.data(0, QStringLiteral("en")).isEmpty());
}

FACTORY_TEST_MAIN(TestVendorCommands)
#include "tst_vendorcommands.moc"
