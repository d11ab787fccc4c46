#include "system/vendordatadelegate.h"

#include "support/rowpicture.h"
#include "support/testmain.h"
#include "system/vendordatamodel.h"

#include <QtTest>

class TestVendorDataDelegate : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsMarkedAsCurrent();
};

void TestVendorDataDelegate::nothingIsMarkedAsCurrent()
{
    const VendorDataModel model(nullptr);
    const VendorDataDelegate delegate(nullptr);
    for (int row = 0; row < 5; ++row) {
        QVERIFY(!showsColor(paintRow(delegate, model.index(row)), QRect(0, 0, 800, 83),
                            QColor(221, 18, 18)));
    }
}

FACTORY_TEST_MAIN(TestVendorDataDelegate)
#include "tst_vendordatadelegate.moc"
