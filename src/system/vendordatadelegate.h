#pragma once

#include "customwidget/listrowdelegate.h"

/// What is on the rows of the vendor data page: a title and an arrow.
class VendorDataDelegate : public ListRowDelegate
{
    Q_OBJECT

public:
    explicit VendorDataDelegate(QObject *parent);

protected:
    Row row(const QModelIndex &index) const override;

private:
    Q_DISABLE_COPY(VendorDataDelegate)
};
