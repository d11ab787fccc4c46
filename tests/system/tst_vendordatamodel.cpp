#include "system/vendordatamodel.h"

#include "support/testmain.h"

#include <QStringListModel>
#include <QtTest>

class TestVendorDataModel : public QObject
{
    Q_OBJECT

private slots:
    void fiveSourcesForEveryRole();
    void otherRowsAreEmpty();
};

namespace
{

QStringList titles(const VendorDataModel &model, int role)
{
    QStringList found;
    for (int row = 0; row < model.rowCount(); ++row) {
        found.append(model.index(row).data(role).toString());
    }
    return found;
}

QStringList sources()
{
    return {QStringLiteral("USB0"), QStringLiteral("USB1"), QStringLiteral("SD0"),
            QStringLiteral("SD1"), QStringLiteral("Auto Detect")};
}

} // namespace

void TestVendorDataModel::fiveSourcesForEveryRole()
{
    const VendorDataModel model(nullptr);
    for (const int role : {int(Qt::DisplayRole), int(Qt::DecorationRole), 258, 259, 300}) {
        QCOMPARE(titles(model, role), sources());
    }
}

void TestVendorDataModel::otherRowsAreEmpty()
{
    const VendorDataModel model(nullptr);
    QVERIFY(!model.index(5).isValid());
    const QStringListModel longer(sources() << QStringLiteral("more"));
    for (const QModelIndex &index : {QModelIndex(), longer.index(5)}) {
        const QVariant data = model.data(index, 258);
        QCOMPARE(data.userType(), int(QMetaType::QString));
        QCOMPARE(data.toString(), QString());
    }
}

FACTORY_TEST_MAIN(TestVendorDataModel)
#include "tst_vendordatamodel.moc"
