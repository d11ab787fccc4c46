#pragma once

#include "factorydebug/pageplaceholder.h"

/// Holds the place of the panel page.
class CSetupPanelForm : public PagePlaceholder
{
    Q_OBJECT

public:
    CSetupPanelForm(QRect rect, QWidget *parent);
};
