#include "pageplaceholder.h"

#include <QPainter>

PagePlaceholder::PagePlaceholder(const QRect &rect, QWidget *parent)
    : KvWidget(parent)
{
    setGeometry(rect);
}

void PagePlaceholder::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
}
