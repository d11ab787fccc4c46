#include "ncmtestview.h"

#include "factorydebug/pageplaceholder.h"

NCMTestView::NCMTestView(QWidget *parent)
    : QObject(parent)
    , m_page(new PagePlaceholder(QRect(0, 66, 800, 414), parent))
{
    m_page->show();
}

NCMTestView::~NCMTestView() = default;
