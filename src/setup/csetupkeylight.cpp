#include "csetupkeylight.h"

CSetupKeyLight::CSetupKeyLight(QRect rect, QWidget *parent)
    : PagePlaceholder(rect, parent)
{
}
