#include "customwidget/listrowdelegate.h"

#include <QPainter>
#include <QStringListModel>
#include <QStyleOptionViewItem>
#include <QtTest>

class TestListRowDelegate : public QObject
{
    Q_OBJECT

private slots:
    void sizeHint_data();
    void sizeHint();
    void backgroundFollowsThePressedRow_data();
    void backgroundFollowsThePressedRow();
    void backgroundIsScaledToTheRow();
    void painterIsRestored();
    void rowsFontIs30PixelsHigh();
};

namespace
{

/// Keeps what it was given to paint with.
class BareDelegate : public ListRowDelegate
{
public:
    BareDelegate()
        : ListRowDelegate(nullptr)
    {
    }

    mutable int pixelSize = 0;
    mutable QRect place;

protected:
    void paintRow(QPainter *painter, const QRect &rect, const QModelIndex &) const override
    {
        pixelSize = painter->font().pixelSize();
        place = rect;
        painter->setPen(Qt::green);
    }
};

QImage painted(const ListRowDelegate &delegate, int row, const QSize &size)
{
    const QStringListModel model(QVector<QString>(5).toList());
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    delegate.paint(&painter, option, model.index(row));
    return image;
}

QImage artwork(const char *name)
{
    return QImage(QLatin1String(":/images/") + QLatin1String(name))
        .convertToFormat(QImage::Format_RGB32);
}

} // namespace

void TestListRowDelegate::sizeHint_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("list without a bar") << 800;
    QTest::newRow("list with a bar") << 799;
    QTest::newRow("nothing") << 0;
}

void TestListRowDelegate::sizeHint()
{
    QFETCH(int, width);
    const BareDelegate delegate;
    QStyleOptionViewItem option;
    option.rect = QRect(5, 6, width, 7);
    QCOMPARE(delegate.sizeHint(option, QModelIndex()), QSize(width, 83));
}

void TestListRowDelegate::backgroundFollowsThePressedRow_data()
{
    QTest::addColumn<int>("pressedRow");
    QTest::addColumn<bool>("press");
    QTest::addColumn<bool>("row2IsPressed");
    QTest::newRow("none") << -1 << true << false;
    QTest::newRow("this one") << 2 << true << true;
    QTest::newRow("the flag is not asked") << 2 << false << true;
    QTest::newRow("another") << 1 << true << false;
    QTest::newRow("none, flag down") << -1 << false << false;
}

void TestListRowDelegate::backgroundFollowsThePressedRow()
{
    QFETCH(int, pressedRow);
    QFETCH(bool, press);
    QFETCH(bool, row2IsPressed);
    BareDelegate delegate;
    QCOMPARE(painted(delegate, 2, QSize(800, 83)), artwork("list_item_bg_n.png"));
    delegate.setIndexPressSlot(pressedRow, press);
    QCOMPARE(painted(delegate, 2, QSize(800, 83)),
             artwork(row2IsPressed ? "list_item_bg_p.png" : "list_item_bg_n.png"));
}

void TestListRowDelegate::backgroundIsScaledToTheRow()
{
    const BareDelegate delegate;
    for (const QSize &size : {QSize(799, 83), QSize(400, 83), QSize(800, 40)}) {
        const QImage image = painted(delegate, 0, size);
        QCOMPARE(image, artwork("list_item_bg_n.png").scaled(size));
        QCOMPARE(delegate.place, image.rect());
    }
}

void TestListRowDelegate::painterIsRestored()
{
    const BareDelegate delegate;
    const QStringListModel model(QVector<QString>(1).toList());
    QImage image(800, 83, QImage::Format_RGB32);
    QPainter painter(&image);
    QFont font;
    font.setPixelSize(11);
    painter.setFont(font);
    painter.setPen(Qt::yellow);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    delegate.paint(&painter, option, model.index(0));
    QCOMPARE(painter.font().pixelSize(), 11);
    QCOMPARE(painter.pen().color(), QColor(Qt::yellow));
}

void TestListRowDelegate::rowsFontIs30PixelsHigh()
{
    const BareDelegate delegate;
    painted(delegate, 0, QSize(800, 83));
    QCOMPARE(delegate.pixelSize, 30);
}

QTEST_MAIN(TestListRowDelegate)
#include "tst_listrowdelegate.moc"
