#include "vendordatadelegate.h"

VendorDataDelegate::VendorDataDelegate(QObject *parent)
    : ListRowDelegate(parent)
{
}

ListRowDelegate::Row VendorDataDelegate::row(const QModelIndex &index) const
{
    return {title(index), false, QString(), true};
}
