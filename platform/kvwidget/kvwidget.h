#pragma once

#include "kvglobal/kvglobal.h"

#include <QWidget>

/// Base of the platform's widgets: a plain widget on which a style sheet paints, in subclasses too.
class KV_API KvWidget : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(KvWidget)

public:
    explicit KvWidget(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
