#include "usbtest/usbtestdelegate.h"

#include "support/rowpicture.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"
#include "usbtest/usbtestmodel.h"
#include "usbtest/usbteststate.h"

#include <QtTest>

// A row is 800 x 83, its title stands from x = 34 on.
class TestUsbTestDelegate : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rowsAre83PixelsHigh();
    void currentModeIsRed_data();
    void currentModeIsRed();
    void traces();
};

namespace
{

const QColor normal(240, 240, 240);
const QColor red(221, 18, 18);
const QRect titleArea(34, 10, 300, 63);

} // namespace

void TestUsbTestDelegate::init()
{
    usbTestListType = UsbTestTopList;
    curUsb0BCMode = QStringLiteral("USB 0 DCP MODE");
    curUsb1BCMode = QStringLiteral("USB 1 SDP MODE");
    curTestMode = QStringLiteral("Normal Mode");
}

void TestUsbTestDelegate::cleanup()
{
    usbTestListType = UsbTestTopList;
}

void TestUsbTestDelegate::rowsAre83PixelsHigh()
{
    const USBTestDelegate delegate(nullptr);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 800, 1);
    QCOMPARE(delegate.sizeHint(option, QModelIndex()), QSize(800, 83));
}

void TestUsbTestDelegate::currentModeIsRed_data()
{
    QTest::addColumn<int>("list");
    QTest::addColumn<int>("currentRow");
    QTest::newRow("port 0") << int(UsbTestUsb0BcModes) << 1;
    QTest::newRow("port 1") << int(UsbTestUsb1BcModes) << 2;
    QTest::newRow("test mode") << int(UsbTestModes) << 0;
}

void TestUsbTestDelegate::currentModeIsRed()
{
    QFETCH(int, list);
    QFETCH(int, currentRow);
    const USBTestModel model(nullptr);
    const USBTestDelegate delegate(nullptr);
    usbTestListType = list;
    for (int row = 0; row < 3; ++row) {
        const QImage image = paintRow(delegate, model.index(row));
        QCOMPARE(showsColor(image, titleArea, red), row == currentRow);
        QCOMPARE(showsColor(image, titleArea, normal), row != currentRow);
    }
}

void TestUsbTestDelegate::traces()
{
    const TestUnit unit;
    const USBTestModel model(nullptr);
    const USBTestDelegate delegate(nullptr);
    const QModelIndex first = model.index(0);
    const QModelIndex last = model.index(2);
    TraceCapture traces;
    paintRow(delegate, first);
    QCOMPARE(
        traces.texts(),
        QStringList(
            {QStringLiteral("usbTestListType: 1 , row: 0"),
             QStringLiteral("usbTestListType: 1 , row: 0 , role: 258 , data: \"USB0 BC Mode\""),
             QStringLiteral("usbTestListType: 1 , row: 0 , role: 259 , data: \"USB 0 SDP MODE\""),
             QStringLiteral("title: \"USB0 BC Mode\" , value: \"USB 0 SDP MODE\"")}));

    usbTestListType = UsbTestModes;
    traces.clear();
    paintRow(delegate, last);
    QCOMPARE(
        traces.texts(),
        QStringList({QStringLiteral("usbTestListType: 4 , row: 2"),
                     QStringLiteral("usbTestListType: 4 , row: 2 , role: 258 , data: \"MFI Mode\""),
                     QStringLiteral("title: \"MFI Mode\"")}));
}

FACTORY_TEST_MAIN(TestUsbTestDelegate)
#include "tst_usbtestdelegate.moc"
