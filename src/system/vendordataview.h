#pragma once

#include <QObject>
#include <QScopedPointer>

class PagePlaceholder;

/// Holds the place of the vendor data page.
class VendorDataView : public QObject
{
    Q_OBJECT

public:
    explicit VendorDataView(QWidget *parent);
    ~VendorDataView() override;

private:
    QScopedPointer<PagePlaceholder> m_page;
};
