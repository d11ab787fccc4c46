#pragma once

#include <QAbstractListModel>

/// Base of a list page's model: a fixed number of rows, with the roles that the rows' painting
/// reads.
class ListRowModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        TitleRole = Qt::UserRole + 2, ///< The row's title.
        ValueRole = Qt::UserRole + 3, ///< What the row is set to.
    };

    ListRowModel(int rows, QObject *parent);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex index(int row, int column = 0,
                      const QModelIndex &parent = QModelIndex()) const override;

    /// Makes the list read all rows anew.
    void refresh();

private:
    Q_DISABLE_COPY(ListRowModel)

    const int dataCount;
};
