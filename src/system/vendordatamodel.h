#pragma once

#include "customwidget/listrowmodel.h"

/// The five sources that a user update can be taken from.
class VendorDataModel : public ListRowModel
{
    Q_OBJECT

public:
    explicit VendorDataModel(QObject *parent);

    /// The row's text, whatever the role; empty for a row that does not exist.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    Q_DISABLE_COPY(VendorDataModel)
};
