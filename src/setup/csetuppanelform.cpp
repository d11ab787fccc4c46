#include "csetuppanelform.h"

CSetupPanelForm::CSetupPanelForm(QRect rect, QWidget *parent)
    : PagePlaceholder(rect, parent)
{
}
