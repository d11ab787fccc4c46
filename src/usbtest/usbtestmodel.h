#pragma once

#include "customwidget/listrowmodel.h"

/// The three rows of whichever list the USB test page shows.
class USBTestModel : public ListRowModel
{
    Q_OBJECT

public:
    explicit USBTestModel(QObject *parent);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    /// On the top list a row's title and its stored value; on the others the row's text, whatever
    /// the role. Always a string, empty where there is nothing.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /// Text of a row of a setting's list; empty for a list or a row that does not exist.
    static QString modeText(int list, int row);

private:
    Q_DISABLE_COPY(USBTestModel)

    static QString topText(int row, int role);
    static QString text(int row, int role);
};
