#pragma once

#include "customwidget/listpage.h"

#include <QModelIndex>
#include <QObject>

class VendorDataDelegate;
class VendorDataModel;

/// The vendor data page: a list of the sources of a user update. A tap opens the update dialog for
/// one of them.
class VendorDataView : public QObject
{
    Q_OBJECT

public:
    /// \a parent is the widget on which the list, and the dialogs over it, are placed.
    explicit VendorDataView(QWidget *parent);
    ~VendorDataView() override;

public slots:
    /// Opens a dialog, another one for each call, which closes itself.
    void listClickedSlot(QModelIndex index);

signals:
    /// Never sent: the page has one title only.
    void setTitle(QString title);

private:
    Q_DISABLE_COPY(VendorDataView)

    VendorDataModel *m_model;
    VendorDataDelegate *m_delegate;
    ListPage m_page;
};
