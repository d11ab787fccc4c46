#include "vendordataview.h"

#include "vendordatadelegate.h"
#include "vendordatamodel.h"

#include "customwidget/listview.h"
#include "update/userupdatedialog.h"

VendorDataView::VendorDataView(QWidget *parent)
    : QObject(parent)
    , m_model(new VendorDataModel(this))
    , m_delegate(new VendorDataDelegate(this))
    , m_page(parent)
{
    m_page.setRows(m_model, m_delegate);
    m_page.listView()->show();
    connect(m_page.listView(), &ListView::listClicked, this, &VendorDataView::listClickedSlot);
}

VendorDataView::~VendorDataView() = default;

void VendorDataView::listClickedSlot(QModelIndex index)
{
    if (index.row() < 0 || index.row() >= m_model->rowCount()) {
        return;
    }
    // The row's number is the device type, although the two name different devices for it.
    QWidget *host = m_page.host();
    auto *dialog =
        new UserUpdateDialog(QRect(0, 0, host->width(), host->height()),
                             static_cast<UserUpdateDialog::DeviceType>(index.row()), host);
    dialog->show();
}
