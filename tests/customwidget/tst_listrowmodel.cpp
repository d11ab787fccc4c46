#include "customwidget/listrowmodel.h"

#include "support/testmain.h"

#include <QtTest>

class TestListRowModel : public QObject
{
    Q_OBJECT

private slots:
    void rowsAreFixed();
    void refreshIsAModelReset();
    void rolesAreThePages();
};

namespace
{

class EmptyRows : public ListRowModel
{
public:
    EmptyRows()
        : ListRowModel(4, nullptr)
    {
    }

    QVariant data(const QModelIndex &, int) const override { return QVariant(); }
};

} // namespace

void TestListRowModel::rowsAreFixed()
{
    const EmptyRows model;
    QCOMPARE(model.rowCount(), 4);
    QVERIFY(model.index(0).isValid());
    QVERIFY(model.index(3).isValid());
    QVERIFY(!model.index(4).isValid());
    QVERIFY(!model.index(-1).isValid());
    QVERIFY(!model.index(0, 1).isValid());
}

void TestListRowModel::refreshIsAModelReset()
{
    EmptyRows model;
    QStringList heard;
    connect(&model, &QAbstractItemModel::modelAboutToBeReset,
            [&heard] { heard.append(QStringLiteral("begin")); });
    connect(&model, &QAbstractItemModel::modelReset,
            [&heard] { heard.append(QStringLiteral("end")); });
    model.refresh();
    QCOMPARE(heard, QStringList({QStringLiteral("begin"), QStringLiteral("end")}));
    QCOMPARE(model.rowCount(), 4);
}

void TestListRowModel::rolesAreThePages()
{
    QCOMPARE(int(ListRowModel::TitleRole), 258);
    QCOMPARE(int(ListRowModel::ValueRole), 259);
}

FACTORY_TEST_MAIN(TestListRowModel)
#include "tst_listrowmodel.moc"
