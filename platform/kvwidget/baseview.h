#pragma once

#include "kvwidget.h"

#include <QString>

/// Base of a titled page. The title is for whoever shows the page; the view itself draws nothing
/// but its style sheet.
class KV_API BaseView : public KvWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(BaseView)
    Q_PROPERTY(QString title MEMBER m_title CONSTANT)

public:
    explicit BaseView(QString title, QWidget *parent = nullptr);

private:
    QString m_title;
};
