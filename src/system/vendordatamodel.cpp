#include "vendordatamodel.h"

namespace
{

constexpr int rows = 5;

constexpr const char *titles[rows] = {
    QT_TRANSLATE_NOOP("VendorDataModel", "USB0"),
    QT_TRANSLATE_NOOP("VendorDataModel", "USB1"),
    QT_TRANSLATE_NOOP("VendorDataModel", "SD0"),
    QT_TRANSLATE_NOOP("VendorDataModel", "SD1"),
    QT_TRANSLATE_NOOP("VendorDataModel", "Auto Detect"),
};

} // namespace

VendorDataModel::VendorDataModel(QObject *parent)
    : ListRowModel(rows, parent)
{
}

QVariant VendorDataModel::data(const QModelIndex &index, int role) const
{
    Q_UNUSED(role);
    const int row = index.row();
    return row >= 0 && row < rows ? tr(titles[row]) : QString();
}
