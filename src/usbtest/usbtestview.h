#pragma once

#include "usbteststate.h"

#include <QModelIndex>
#include <QObject>
#include <QScopedPointer>

class ListPage;
class USBTestDelegate;
class USBTestModel;

namespace kv_usb
{
class KVUsbManager;
}

/// The USB test page: a top list of three settings, the charging mode of each port and the unit's
/// test mode, and below each of them a list of its three values. A tap on a value applies and
/// stores it.
class USBTestView : public QObject
{
    Q_OBJECT

public:
    /// \a parent is the widget on which the list is placed.
    explicit USBTestView(QWidget *parent);
    ~USBTestView() override;

public slots:
    /// "return" goes back to the top list; on the top list, and for any other id, nothing happens.
    void statusBarButtonClicked(QString id);
    void listClickedSlot(QModelIndex index);

signals:
    /// The list that is shown has changed; \a title is translated.
    void setTitle(QString title);

private:
    Q_DISABLE_COPY(USBTestView)

    void traceManager() const;
    static void loadCurrentModes();
    void showList(QWidget *host);
    void openList(int row);
    void chooseBcMode(unsigned int port, int row, QString *current, const QString &key);
    void chooseTestMode(int row);
    void keep(const QString &text, QString *current, const QString &key);

    kv_usb::KVUsbManager *m_usbManager;
    USBTestModel *m_model;
    USBTestDelegate *m_delegate;
    QScopedPointer<ListPage> m_page;
};
