#include "vendordatadelegate.h"

VendorDataDelegate::VendorDataDelegate(QObject *parent)
    : ListRowDelegate(parent)
{
}

void VendorDataDelegate::paintRow(QPainter *painter, const QRect &rect,
                                  const QModelIndex &index) const
{
    drawTitle(painter, rect, title(index), normalColor);
    drawArrow(painter, rect);
}
