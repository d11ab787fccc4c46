#pragma once

#include <QObject>
#include <QScopedPointer>

class PagePlaceholder;

/// Level of the USB test list that is shown: 1 is the top list.
extern int usbTestListType;

/// Holds the place of the USB test page.
class USBTestView : public QObject
{
    Q_OBJECT

public:
    explicit USBTestView(QWidget *parent);
    ~USBTestView() override;

public slots:
    void statusBarButtonClicked(QString id);

signals:
    void setTitle(QString title);

private:
    QScopedPointer<PagePlaceholder> m_page;
};
