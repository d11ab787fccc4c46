#pragma once

#include "customwidget/listrowdelegate.h"

/// What is on the rows of the USB test page: on the top list a title, its value in red and an
/// arrow, on the others a title alone, in red where it is the current one.
class USBTestDelegate : public ListRowDelegate
{
    Q_OBJECT

public:
    explicit USBTestDelegate(QObject *parent);

protected:
    Row row(const QModelIndex &index) const override;

private:
    Q_DISABLE_COPY(USBTestDelegate)
};
