#include "kvwidget/kvwidget.h"

#include <QPainter>
#include <QStyleOption>

KvWidget::KvWidget(QWidget *parent)
    : QWidget(parent)
{
}

void KvWidget::paintEvent(QPaintEvent *)
{
    // With this attribute Qt has painted the sheet already; a translucent background must not be
    // painted twice.
    if (testAttribute(Qt::WA_StyledBackground)) {
        return;
    }
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}
