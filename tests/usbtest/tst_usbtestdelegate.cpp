#include "usbtest/usbtestdelegate.h"

#include "support/rowpicture.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"
#include "usbtest/usbtestmodel.h"
#include "usbtest/usbteststate.h"

#include <QtTest>

class TestUsbTestDelegate : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void traces();
};

void TestUsbTestDelegate::cleanup()
{
    usbTestListType = UsbTestTopList;
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
