#pragma once

#include "customwidget/listrowdelegate.h"

/// Paints the rows of the vendor data page: a title and an arrow.
class VendorDataDelegate : public ListRowDelegate
{
    Q_OBJECT

public:
    explicit VendorDataDelegate(QObject *parent);

protected:
    void paintRow(QPainter *painter, const QRect &rect, const QModelIndex &index) const override;

private:
    Q_DISABLE_COPY(VendorDataDelegate)
};
