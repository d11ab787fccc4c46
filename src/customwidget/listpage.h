#pragma once

#include <QPointer>

class ListRowDelegate;
class ListView;
class QAbstractItemModel;
class QWidget;

/// What a list page has on the screen: the widget that it was given, 800 x 480, and the list below
/// that widget's status bar.
class ListPage
{
public:
    explicit ListPage(QWidget *host);
    /// The list goes with the page, once the event loop comes round to it.
    ~ListPage();

    /// Shows the rows; the list tells the delegate which one is pressed.
    void setRows(QAbstractItemModel *model, ListRowDelegate *delegate);

    QWidget *host() const;
    ListView *listView() const;

private:
    Q_DISABLE_COPY(ListPage)

    QWidget *const m_host;
    const QPointer<ListView> m_listView; // The host, which owns it, may have gone first.
};
