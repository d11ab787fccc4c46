#include "usbtestview.h"

#include "factorydebug/pageplaceholder.h"

int usbTestListType = 1;

USBTestView::USBTestView(QWidget *parent)
    : QObject(parent)
    , m_page(new PagePlaceholder(QRect(0, 66, 800, 414), parent))
{
    m_page->show();
}

USBTestView::~USBTestView() = default;

void USBTestView::statusBarButtonClicked(QString id)
{
    if (id == QLatin1String("return") && usbTestListType != 1) {
        usbTestListType = 1;
        emit setTitle(tr("USB Test"));
    }
}
