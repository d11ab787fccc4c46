#include "csysctrlpage.h"

CSysCtrlPage::CSysCtrlPage(QRect rect, KvWidget *parent)
    : PagePlaceholder(rect, parent)
{
}
