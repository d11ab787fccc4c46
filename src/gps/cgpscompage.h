#pragma once

#include "kvwidget/baseview.h"

/// Holds the place of the GPS page: covers the screen until it is touched, then deletes itself.
class CGpsComPage : public BaseView
{
    Q_OBJECT

public:
    explicit CGpsComPage(QWidget *parent);

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
};
