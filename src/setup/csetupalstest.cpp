#include "csetupalstest.h"

CSetupALSTest::CSetupALSTest(QRect rect, QWidget *parent)
    : PagePlaceholder(rect, parent)
{
}
