#include "kvwidget/baseview.h"

BaseView::BaseView(QString title, QWidget *parent)
    : KvWidget(parent)
    , m_title(title)
{
}
