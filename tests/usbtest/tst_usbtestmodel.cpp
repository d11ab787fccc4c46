#include "usbtest/usbtestmodel.h"

#include "service/datasavecontrol.h"
#include "service/setupstridconst.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"
#include "usbtest/usbteststate.h"

#include <QSignalSpy>
#include <QtTest>

class TestUsbTestModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void everyListHasThreeRows();
    void topListTitles();
    void topListValuesAreTheStoredOnes();
    void topListValuesAreThePlatformDefaultsWithAnEmptyStore();
    void topListHasNothingForOtherRoles_data();
    void topListHasNothingForOtherRoles();
    void modeText_data();
    void modeText();
    void modeTextIsThereForEveryRole();
    void rowsAndListsThatDoNotExistAreEmpty();
    void refreshIsAModelReset();
    void traces();
};

void TestUsbTestModel::cleanup()
{
    usbTestListType = UsbTestTopList;
}

void TestUsbTestModel::initTestCase()
{
    // Before any page has been there.
    QCOMPARE(usbTestListType, int(UsbTestTopList));
}

void TestUsbTestModel::everyListHasThreeRows()
{
    const USBTestModel model(nullptr);
    for (usbTestListType = 1; usbTestListType <= 4; ++usbTestListType) {
        QCOMPARE(model.rowCount(), 3);
        QVERIFY(model.index(2).isValid());
        QVERIFY(!model.index(3).isValid());
    }
}

void TestUsbTestModel::topListTitles()
{
    const TestUnit unit;
    const USBTestModel model(nullptr);
    QCOMPARE(model.index(0).data(258).toString(), QStringLiteral("USB0 BC Mode"));
    QCOMPARE(model.index(1).data(258).toString(), QStringLiteral("USB1 BC Mode"));
    QCOMPARE(model.index(2).data(258).toString(), QStringLiteral("TEST Mode"));
}

void TestUsbTestModel::topListValuesAreTheStoredOnes()
{
    const TestUnit unit;
    const USBTestModel model(nullptr);
    const QString keys[] = {SetupStrIdConst::setupU0BCMode, SetupStrIdConst::setupU1BCMode,
                            SetupStrIdConst::setupTestMode};
    for (int row = 0; row < 3; ++row) {
        const QString text = QStringLiteral("value %1").arg(row);
        DataSaveControl::saveSettingData(keys[row], text, QString());
        QCOMPARE(model.index(row).data(259).toString(), text);
    }
}

void TestUsbTestModel::topListValuesAreThePlatformDefaultsWithAnEmptyStore()
{
    // The new unit's defaults.ini.
    const TestUnit unit;
    const USBTestModel model(nullptr);
    QCOMPARE(model.index(0).data(259).toString(), QStringLiteral("USB 0 SDP MODE"));
    QCOMPARE(model.index(1).data(259).toString(), QStringLiteral("USB 1 SDP MODE"));
    QCOMPARE(model.index(2).data(259).toString(), QStringLiteral("USB-IF Mode"));
}

void TestUsbTestModel::topListHasNothingForOtherRoles_data()
{
    QTest::addColumn<int>("role");
    QTest::newRow("display") << int(Qt::DisplayRole);
    QTest::newRow("decoration") << int(Qt::DecorationRole);
    QTest::newRow("below the title") << 257;
    QTest::newRow("above the value") << 260;
}

void TestUsbTestModel::topListHasNothingForOtherRoles()
{
    QFETCH(int, role);
    const TestUnit unit;
    const USBTestModel model(nullptr);
    const QVariant data = model.index(0).data(role);
    QCOMPARE(data.userType(), int(QMetaType::QString));
    QCOMPARE(data.toString(), QString());
}

void TestUsbTestModel::modeText_data()
{
    QTest::addColumn<int>("list");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("port 0") << 2
                            << QStringList({"USB 0 CDP MODE", "USB 0 DCP MODE", "USB 0 SDP MODE"});
    QTest::newRow("port 1") << 3
                            << QStringList({"USB 1 CDP MODE", "USB 1 DCP MODE", "USB 1 SDP MODE"});
    QTest::newRow("test mode") << 4 << QStringList({"Normal Mode", "USB-IF Mode", "MFI Mode"});
}

void TestUsbTestModel::modeText()
{
    QFETCH(int, list);
    QFETCH(QStringList, texts);
    const USBTestModel model(nullptr);
    usbTestListType = list;
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(model.index(row).data(258).toString(), texts.at(row));
        QCOMPARE(USBTestModel::modeText(list, row), texts.at(row));
    }
}

void TestUsbTestModel::modeTextIsThereForEveryRole()
{
    const USBTestModel model(nullptr);
    usbTestListType = UsbTestModes;
    for (const int role : {int(Qt::DisplayRole), int(Qt::DecorationRole), 257, 258, 259, 300}) {
        QCOMPARE(model.index(1).data(role).toString(), QStringLiteral("USB-IF Mode"));
    }
}

void TestUsbTestModel::rowsAndListsThatDoNotExistAreEmpty()
{
    const TestUnit unit;
    const USBTestModel model(nullptr);
    for (const int list : {-1, 0, 1, 2, 3, 4, 5}) {
        usbTestListType = list;
        QCOMPARE(model.data(QModelIndex(), 258).userType(), int(QMetaType::QString));
        QCOMPARE(model.data(QModelIndex(), 258).toString(), QString());
    }
    QCOMPARE(USBTestModel::modeText(1, 0), QString());
    QCOMPARE(USBTestModel::modeText(5, 0), QString());
    QCOMPARE(USBTestModel::modeText(2, 3), QString());
    QCOMPARE(USBTestModel::modeText(2, -1), QString());
}

void TestUsbTestModel::refreshIsAModelReset()
{
    USBTestModel model(nullptr);
    QSignalSpy spy(&model, &QAbstractItemModel::modelReset);
    model.refresh();
    QCOMPARE(spy.size(), 1);
}

void TestUsbTestModel::traces()
{
    const USBTestModel model(nullptr);
    usbTestListType = UsbTestUsb1BcModes;
    TraceCapture traces;
    const QModelIndex index = model.index(1);
    traces.clear();
    index.data(258);
    QCOMPARE(traces.texts(),
             QStringList(QStringLiteral(
                 "usbTestListType: 3 , row: 1 , role: 258 , data: \"USB 1 DCP MODE\"")));
    traces.clear();
    model.rowCount();
    QCOMPARE(traces.texts(), QStringList(QStringLiteral("dataCount: 3")));
}

FACTORY_TEST_MAIN(TestUsbTestModel)
#include "tst_usbtestmodel.moc"
