#include "cdevsinfopage.h"

CDevsInfoPage::CDevsInfoPage(QRect rect, KvWidget *parent)
    : PagePlaceholder(rect, parent)
{
}
