#pragma once

#include "factorydebug/pageplaceholder.h"

/// Holds the place of the light sensor page.
class CSetupALSTest : public PagePlaceholder
{
    Q_OBJECT

public:
    CSetupALSTest(QRect rect, QWidget *parent);
};
