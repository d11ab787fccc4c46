#include "system/vendordatadelegate.h"

#include "support/rowpicture.h"
#include "support/testmain.h"
#include "system/vendordatamodel.h"

#include <QPainter>
#include <QStyleOptionViewItem>
#include <QtTest>

class TestVendorDataDelegate : public QObject
{
    Q_OBJECT

private slots:
    void rowsAre83PixelsHigh();
    void rowHasTitleAndArrow();
    void nothingIsMarkedAsCurrent();
    void pressedRow();
};

namespace
{

QImage background(const char *name)
{
    return QImage(QLatin1String(name)).convertToFormat(QImage::Format_RGB32);
}

} // namespace

void TestVendorDataDelegate::rowsAre83PixelsHigh()
{
    const VendorDataDelegate delegate(nullptr);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 799, 1);
    QCOMPARE(delegate.sizeHint(option, QModelIndex()), QSize(799, 83));
}

void TestVendorDataDelegate::rowHasTitleAndArrow()
{
    const VendorDataModel model(nullptr);
    const VendorDataDelegate delegate(nullptr);
    const QImage row = paintRow(delegate, model.index(4));
    QVERIFY(showsColor(row, QRect(34, 10, 300, 63), QColor(240, 240, 240)));
    const QRect painted = difference(row, background(":/images/list_item_bg_n.png"));
    QVERIFY(painted.left() >= 34 && painted.left() <= 38);

    QImage expected = background(":/images/list_item_bg_n.png");
    QPainter(&expected).drawImage(662, 21, QImage(QStringLiteral(":/images/ic_list_next.png")));
    const QRect right(400, 0, 400, 83);
    QCOMPARE(row.copy(right), expected.copy(right));
}

void TestVendorDataDelegate::nothingIsMarkedAsCurrent()
{
    const VendorDataModel model(nullptr);
    const VendorDataDelegate delegate(nullptr);
    for (int row = 0; row < 5; ++row) {
        QVERIFY(!showsColor(paintRow(delegate, model.index(row)), QRect(0, 0, 800, 83),
                            QColor(221, 18, 18)));
    }
}

void TestVendorDataDelegate::pressedRow()
{
    const VendorDataModel model(nullptr);
    VendorDataDelegate delegate(nullptr);
    delegate.setIndexPressSlot(3, true);
    const QPoint beside(750, 40);
    QCOMPARE(paintRow(delegate, model.index(3)).pixel(beside),
             background(":/images/list_item_bg_p.png").pixel(beside));
    QCOMPARE(paintRow(delegate, model.index(2)).pixel(beside),
             background(":/images/list_item_bg_n.png").pixel(beside));
}

FACTORY_TEST_MAIN(TestVendorDataDelegate)
#include "tst_vendordatadelegate.moc"
