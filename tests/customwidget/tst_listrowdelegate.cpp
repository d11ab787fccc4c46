#include "customwidget/listrowdelegate.h"

#include "support/testmain.h"

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
    void rowIsPaintedAsItSays_data();
    void rowIsPaintedAsItSays();
    void rowThatLiesElsewhereIsPaintedThere();
};

namespace
{

/// All rows are alike.
class BareDelegate : public ListRowDelegate
{
public:
    explicit BareDelegate(const QString &title = QString(), bool isCurrent = false,
                          const QString &value = QString(), bool hasArrow = false)
        : ListRowDelegate(nullptr)
        , m_row{title, isCurrent, value, hasArrow}
    {
    }

protected:
    Row row(const QModelIndex &) const override { return m_row; }

private:
    Row m_row;
};

QImage painted(const ListRowDelegate &delegate, int row, const QSize &size,
               const QPoint &place = QPoint())
{
    const QStringListModel model(QVector<QString>(5).toList());
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = QRect(place, QSize(800, 83));
    if (place.isNull()) {
        option.rect = image.rect();
    }
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

void TestListRowDelegate::rowIsPaintedAsItSays_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("isCurrent");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("hasArrow");
    const QString none;
    QTest::newRow("title") << QStringLiteral("Title") << false << none << false;
    QTest::newRow("current") << QStringLiteral("Title") << true << none << false;
    QTest::newRow("arrow") << QStringLiteral("Title") << false << none << true;
    QTest::newRow("all") << QStringLiteral("Title") << false << QStringLiteral("Value") << true;
}

void TestListRowDelegate::rowIsPaintedAsItSays()
{
    QFETCH(QString, title);
    QFETCH(bool, isCurrent);
    QFETCH(QString, value);
    QFETCH(bool, hasArrow);
    QImage expected = artwork("list_item_bg_n.png");
    QPainter painter(&expected);
    QFont font;
    font.setPixelSize(30);
    painter.setFont(font);
    painter.setPen(isCurrent ? QColor(221, 18, 18) : QColor(240, 240, 240));
    painter.drawText(QRect(QPoint(34, 0), QPoint(799, 82)), Qt::AlignLeft | Qt::AlignVCenter,
                     title);
    painter.setPen(QColor(221, 18, 18));
    painter.drawText(QRect(0, 0, 662, 83), Qt::AlignRight | Qt::AlignVCenter, value);
    if (hasArrow) {
        // 40 pixels high, below 21 of 83.
        painter.drawImage(662, 21, QImage(QStringLiteral(":/images/ic_list_next.png")));
    }
    painter.end();
    const BareDelegate delegate(title, isCurrent, value, hasArrow);
    QCOMPARE(painted(delegate, 0, QSize(800, 83)), expected);
}

void TestListRowDelegate::rowThatLiesElsewhereIsPaintedThere()
{
    const BareDelegate delegate(QStringLiteral("Title"), false, QString(), true);
    const QImage expected = painted(delegate, 0, QSize(800, 83));
    const QImage below = painted(delegate, 0, QSize(800, 300), QPoint(0, 166));
    QCOMPARE(below.copy(0, 166, 800, 83), expected);
    QCOMPARE(below.pixelColor(400, 165), QColor(Qt::magenta));
    QCOMPARE(below.pixelColor(400, 249), QColor(Qt::magenta));
    // Half a row above the top.
    const QImage above = painted(delegate, 0, QSize(800, 83), QPoint(0, -40));
    QCOMPARE(above.copy(0, 0, 800, 43), expected.copy(0, 40, 800, 43));
    // The title ends, and the arrow begins, that far from the row's left edge.
    const QImage beside = painted(delegate, 0, QSize(900, 83), QPoint(50, 0));
    QCOMPARE(beside.copy(50, 0, 700, 83), expected.copy(0, 0, 700, 83));
}

FACTORY_TEST_MAIN(TestListRowDelegate)
#include "tst_listrowdelegate.moc"
