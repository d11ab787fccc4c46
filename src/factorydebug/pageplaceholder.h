#pragma once

#include "kvwidget/kvwidget.h"

/// An empty black page that holds the place of one that is still to come.
class PagePlaceholder : public KvWidget
{
    Q_OBJECT

public:
    PagePlaceholder(const QRect &rect, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};
