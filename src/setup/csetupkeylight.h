#pragma once

#include "factorydebug/pageplaceholder.h"

/// Holds the place of the key light page.
class CSetupKeyLight : public PagePlaceholder
{
    Q_OBJECT

public:
    CSetupKeyLight(QRect rect, QWidget *parent);
};
