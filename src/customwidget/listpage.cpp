#include "listpage.h"

#include "listrowdelegate.h"
#include "listview.h"

#include <QCoreApplication>

ListPage::ListPage(QWidget *host)
    : m_host(host)
    , m_listView((host->resize(800, 480), new ListView(host)))
{
    m_listView->setGeometry(0, 66, 800, 414);
    m_listView->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_listView->show();
}

ListPage::~ListPage()
{
    if (m_listView) {
        m_listView->hide();
        // The rows go with their page, ahead of the list, which would select among them once more.
        m_listView->setModel(nullptr);
        m_listView->deleteLater();
    }
}

void ListPage::setRows(QAbstractItemModel *model, ListRowDelegate *delegate)
{
    m_listView->setModel(model);
    m_listView->setItemDelegate(delegate);
    // Otherwise the rows would be laid out when they are first painted, and the wide bar would come
    // only after that.
    m_listView->doItemsLayout();
    QCoreApplication::sendPostedEvents(m_listView, QEvent::LayoutRequest);
    QObject::connect(m_listView.data(), &ListView::setIndexPress, delegate,
                     &ListRowDelegate::setIndexPressSlot);
}

QWidget *ListPage::host() const
{
    return m_host;
}

ListView *ListPage::listView() const
{
    return m_listView;
}
