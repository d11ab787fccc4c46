#include "usbtest/usbtestmodel.h"

#include "service/datasavecontrol.h"
#include "service/setupstridconst.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "usbtest/usbteststate.h"

#include <QtTest>

class TestUsbTestModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void topListValuesAreTheStoredOnes();
    void topListHasNothingForOtherRoles_data();
    void topListHasNothingForOtherRoles();
    void modeTextIsThereForEveryRole();
    void rowsAndListsThatDoNotExistAreEmpty();
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

FACTORY_TEST_MAIN(TestUsbTestModel)
#include "tst_usbtestmodel.moc"
