#include "listrowmodel.h"

ListRowModel::ListRowModel(int rows, QObject *parent)
    : QAbstractListModel(parent)
    , dataCount(rows)
{
}

int ListRowModel::rowCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent);
    return dataCount;
}

QModelIndex ListRowModel::index(int row, int column, const QModelIndex &parent) const
{
    return QAbstractListModel::index(row, column, parent);
}

void ListRowModel::refresh()
{
    beginResetModel();
    endResetModel();
}
