#include "usbeyetestview.h"

#include "factorydebug/pageplaceholder.h"

USBEyeTestView::USBEyeTestView(QWidget *parent)
    : QObject(parent)
    , m_page(new PagePlaceholder(QRect(0, 66, 800, 414), parent))
{
    m_page->show();
}

USBEyeTestView::~USBEyeTestView() = default;
