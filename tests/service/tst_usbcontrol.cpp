#include "service/usbcontrol.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

class TestUsbControl : public QObject
{
    Q_OBJECT

private slots:
    void callsReachThePorts();
    void mountsInTheirOrder();
    void controllerOfAMountRoot_data();
    void controllerOfAMountRoot();
};

void TestUsbControl::callsReachThePorts()
{
    const TestUnit unit;
    UsbControl::getInstance()->setUsbBcMode(1, 2);
    UsbControl::getInstance()->setUsbCertification('M');
    UsbControl::getInstance()->setUsbTestMode(UsbControl::UsbTestMode(4));
    QCOMPARE(unit.journal(QStringLiteral("/^usb /")),
             QStringList({QStringLiteral("usb port 1 SDP"), QStringLiteral("usb certification M"),
                          QStringLiteral("usb test mode 4")}));
}

void TestUsbControl::mountsInTheirOrder()
{
    TestUnit unit;
    QCOMPARE(UsbControl::getInstance()->getMountDevice(), QStringList());
    unit.plug(QStringLiteral("sd1"));
    unit.plug(QStringLiteral("usb0"));
    QCOMPARE(UsbControl::getInstance()->getMountDevice(),
             QStringList({QStringLiteral("/media/sd1"), QStringLiteral("/media/usb0")}));
}

void TestUsbControl::controllerOfAMountRoot_data()
{
    QTest::addColumn<QString>("root");
    QTest::addColumn<int>("controller");
    QTest::newRow("usb0") << QStringLiteral("/media/usb0") << 0;
    QTest::newRow("usb1") << QStringLiteral("/media/usb1") << 1;
    QTest::newRow("sd1") << QStringLiteral("/media/sd1") << 1;
    QTest::newRow("none") << QStringLiteral("/media/cd") << -1;
}

void TestUsbControl::controllerOfAMountRoot()
{
    QFETCH(QString, root);
    QFETCH(int, controller);
    const TestUnit unit;
    QCOMPARE(UsbControl::getInstance()->getHwCtrlId(root), controller);
}

FACTORY_TEST_MAIN(TestUsbControl)
#include "tst_usbcontrol.moc"
