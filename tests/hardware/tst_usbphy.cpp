#include "hardware/usb/usbphy.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QtTest>

using hardware::UsbPhy;

class tst_UsbPhy : public QObject
{
    Q_OBJECT

private slots:
    void newUnit();
    void role_data();
    void role();
    void swing_data();
    void swing();
    void testMode_data();
    void testMode();
    void disconnectLevelIsTheLowFiveBits();
    void speedFollowsThePortsSwitch();
    void logoTestFollowsItsSwitch();
    void switchThatIsMissingOrStrange();
    void portsAreApart();
};

void tst_UsbPhy::newUnit()
{
    OpenUnit unit;
    QCOMPARE(unit->usbPhy().description(),
             QStringList({QStringLiteral("role host"),
                          QStringLiteral("port 0: high speed, test mode 0 (none), swing +0, "
                                         "disconnect level 16"),
                          QStringLiteral("port 1: high speed, test mode 0 (none), swing +0, "
                                         "disconnect level 16"),
                          QStringLiteral("logo test off")}));
}

void tst_UsbPhy::role_data()
{
    QTest::addColumn<quint32>("word");
    QTest::addColumn<QString>("role");
    QTest::newRow("host") << 0x00070007u << QStringLiteral("host");
    QTest::newRow("device") << 0x00070004u << QStringLiteral("device");
    QTest::newRow("neither") << 0x00070005u << QStringLiteral("00070005");
}

void tst_UsbPhy::role()
{
    QFETCH(quint32, word);
    OpenUnit unit;
    unit->memory().write(0x9C00018C, word);
    QTEST(unit->usbPhy().role(), "role");
}

void tst_UsbPhy::swing_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<QString>("swing");
    // 0x40 + m is +m, 0x60 + m is -m, m up to 31.
    QTest::newRow("plus zero") << 0x40 << QStringLiteral("+0");
    QTest::newRow("+1") << 0x41 << QStringLiteral("+1");
    QTest::newRow("+31") << 0x5F << QStringLiteral("+31");
    QTest::newRow("minus zero") << 0x60 << QStringLiteral("-0");
    QTest::newRow("-31") << 0x7F << QStringLiteral("-31");
    QTest::newRow("below") << 0x3F << QStringLiteral("byte 3F");
    QTest::newRow("above") << 0x80 << QStringLiteral("byte 80");
}

void tst_UsbPhy::swing()
{
    QFETCH(int, byte);
    OpenUnit unit;
    unit->memory().write(0x9C000190, 0x7F7F0000u | quint32(byte));
    QTEST(unit->usbPhy().swing(0), "swing");
    QCOMPARE(unit->usbPhy().swing(1), QStringLiteral("byte 00"));
    unit->memory().write(0x9C000190, 0x7F7F0000u | quint32(byte) << 8);
    QTEST(unit->usbPhy().swing(1), "swing");
}

void tst_UsbPhy::testMode_data()
{
    QTest::addColumn<quint32>("code");
    QTest::addColumn<QString>("mode");
    QTest::newRow("none") << 0u << QStringLiteral("0 (none)");
    QTest::newRow("eye, high") << 1u << QStringLiteral("1 (eye diagram, high speed)");
    QTest::newRow("eye, full") << 4u << QStringLiteral("4 (eye diagram, full speed)");
    QTest::newRow("J, high") << 9u << QStringLiteral("9 (test J, high speed)");
    QTest::newRow("J, full") << 11u << QStringLiteral("11 (test J, full speed)");
    QTest::newRow("K, high") << 10u << QStringLiteral("10 (test K, high speed)");
    QTest::newRow("K, full") << 12u << QStringLiteral("12 (test K, full speed)");
    QTest::newRow("SE0") << 7u << QStringLiteral("7 (SE0)");
    QTest::newRow("unknown") << 0xABCDu << QStringLiteral("0000ABCD");
}

void tst_UsbPhy::testMode()
{
    QFETCH(quint32, code);
    OpenUnit unit;
    unit->memory().write(0x9C004B10, code);
    QTEST(unit->usbPhy().testMode(1), "mode");
    QCOMPARE(unit->usbPhy().testMode(0), QStringLiteral("0 (none)"));
}

void tst_UsbPhy::disconnectLevelIsTheLowFiveBits()
{
    OpenUnit unit;
    unit->memory().write(0x9C004A9C, 0xFFFFFFE3);
    unit->memory().write(0x9C004B1C, 0x0000003F);
    QCOMPARE(unit->usbPhy().disconnectLevel(0), 3);
    QCOMPARE(unit->usbPhy().disconnectLevel(1), 31);
}

void tst_UsbPhy::speedFollowsThePortsSwitch()
{
    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/sys/devices/platform/ehci-platform.2/usb_speed_switch")),
              "0\n");
    QCOMPARE(unit->usbPhy().speed(0), QStringLiteral("high speed"));
    QCOMPARE(unit->usbPhy().speed(1), QStringLiteral("full speed"));
}

void tst_UsbPhy::logoTestFollowsItsSwitch()
{
    OpenUnit unit;
    QVERIFY(!unit->usbPhy().isLogoTestOn());
    writeFile(unit.path(QStringLiteral("/sys/module/usbcore/parameters/usb_logo_test_start")),
              "1\n");
    QVERIFY(unit->usbPhy().isLogoTestOn());
    QCOMPARE(unit->usbPhy().description().last(), QStringLiteral("logo test on"));
}

void tst_UsbPhy::switchThatIsMissingOrStrange()
{
    OpenUnit unit;
    const QString file =
        unit.path(QStringLiteral("/sys/devices/platform/ehci-platform.1/usb_speed_switch"));
    writeFile(file, "warp\n");
    QCOMPARE(unit->usbPhy().speed(0), QStringLiteral("speed \"warp\""));
    QVERIFY(QFile::remove(file));
    QCOMPARE(unit->usbPhy().speed(0), QStringLiteral("speed \"\""));
}

void tst_UsbPhy::portsAreApart()
{
    OpenUnit unit;
    unit->memory().write(0x9C000190, 0x7F7F6159); // port 1 -1, port 0 +25
    unit->memory().write(0x9C004A90, 7);
    unit->memory().write(0x9C004A9C, 1);
    QCOMPARE(
        unit->usbPhy().description().at(1),
        QStringLiteral("port 0: high speed, test mode 7 (SE0), swing +25, disconnect level 1"));
    QCOMPARE(unit->usbPhy().description().at(2),
             QStringLiteral("port 1: high speed, test mode 0 (none), swing -1, disconnect level "
                            "16"));
}

FACTORY_TEST_GUILESS_MAIN(tst_UsbPhy)
#include "tst_usbphy.moc"
