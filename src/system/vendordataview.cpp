#include "vendordataview.h"

#include "factorydebug/pageplaceholder.h"

VendorDataView::VendorDataView(QWidget *parent)
    : QObject(parent)
    , m_page(new PagePlaceholder(QRect(0, 66, 800, 414), parent))
{
    m_page->show();
}

VendorDataView::~VendorDataView() = default;
