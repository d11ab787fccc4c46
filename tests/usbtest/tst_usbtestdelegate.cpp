#include "usbtest/usbtestdelegate.h"

#include "service/datasavecontrol.h"
#include "service/setupstridconst.h"
#include "support/rowpicture.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"
#include "usbtest/usbtestmodel.h"
#include "usbtest/usbteststate.h"

#include <QPainter>
#include <QtTest>

// A row is 800 x 83. The title stands from x = 34 on, the value ends at x = 661, the arrow, 40 x
// 40, lies at (662, 21).
class TestUsbTestDelegate : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rowsAre83PixelsHigh();
    void topRowHasTitleValueAndArrow();
    void valueEndsBesideTheArrow();
    void currentModeIsRed_data();
    void currentModeIsRed();
    void modeRowHasNeitherValueNorArrow();
    void pressedRow();
    void traces();
};

namespace
{

const QColor normal(240, 240, 240);
const QColor red(221, 18, 18);
const QRect titleArea(34, 10, 300, 63);
const QRect valueArea(350, 10, 312, 63);
const QRect arrowArea(662, 21, 40, 40);

QImage background(const char *name)
{
    return QImage(QLatin1String(name)).convertToFormat(QImage::Format_RGB32);
}

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

void TestUsbTestDelegate::topRowHasTitleValueAndArrow()
{
    const TestUnit unit;
    const USBTestModel model(nullptr);
    const USBTestDelegate delegate(nullptr);
    const QImage row = paintRow(delegate, model.index(0));
    QVERIFY(showsColor(row, titleArea, normal));
    QVERIFY(!showsColor(row, titleArea, red));
    QVERIFY(showsColor(row, valueArea, red));
    QVERIFY(!showsColor(row, valueArea, normal));

    // All that is not background begins at the title's left edge and ends with the arrow.
    const QRect painted = difference(row, background(":/images/list_item_bg_n.png"));
    QVERIFY(painted.left() >= 34 && painted.left() <= 38);
    QVERIFY(painted.right() > 662 && painted.right() < 702);
    QVERIFY(qAbs(painted.center().y() - 41) <= 1);

    // The arrow is where a copy of it at its natural size would be.
    QImage expected = background(":/images/list_item_bg_n.png");
    QPainter(&expected).drawImage(662, 21, QImage(QStringLiteral(":/images/ic_list_next.png")));
    QCOMPARE(row.copy(arrowArea), expected.copy(arrowArea));
}

void TestUsbTestDelegate::valueEndsBesideTheArrow()
{
    const TestUnit unit;
    const USBTestModel model(nullptr);
    const USBTestDelegate delegate(nullptr);
    DataSaveControl::saveSettingData(SetupStrIdConst::setupU1BCMode, QStringLiteral("HHH"),
                                     QString());
    const QImage with = paintRow(delegate, model.index(1));
    DataSaveControl::saveSettingData(SetupStrIdConst::setupU1BCMode, QString(), QString());
    const QRect value = difference(with, paintRow(delegate, model.index(1)));
    // Left edge 0, width 799 - 137: the last column is 661; an H has two or three empty ones.
    QVERIFY2(value.right() >= 655 && value.right() <= 661,
             qPrintable(QString::number(value.right())));
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

void TestUsbTestDelegate::modeRowHasNeitherValueNorArrow()
{
    const USBTestModel model(nullptr);
    const USBTestDelegate delegate(nullptr);
    usbTestListType = UsbTestUsb0BcModes;
    const QRect painted =
        difference(paintRow(delegate, model.index(1)), background(":/images/list_item_bg_n.png"));
    QVERIFY(painted.left() >= 34 && painted.left() <= 38);
    QVERIFY(painted.right() < 334);
}

void TestUsbTestDelegate::pressedRow()
{
    const USBTestModel model(nullptr);
    USBTestDelegate delegate(nullptr);
    usbTestListType = UsbTestUsb0BcModes;
    delegate.setIndexPressSlot(1, true);
    const QPoint beside(700, 40);
    QCOMPARE(paintRow(delegate, model.index(1)).pixel(beside),
             background(":/images/list_item_bg_p.png").pixel(beside));
    QCOMPARE(paintRow(delegate, model.index(0)).pixel(beside),
             background(":/images/list_item_bg_n.png").pixel(beside));
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
