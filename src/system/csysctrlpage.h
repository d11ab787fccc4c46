#pragma once

#include "factorydebug/pageplaceholder.h"

/// Holds the place of the system control page.
class CSysCtrlPage : public PagePlaceholder
{
    Q_OBJECT

public:
    CSysCtrlPage(QRect rect, KvWidget *parent);

signals:
    /// The screen is to be dimmed: the unit is about to restart.
    void sigShowMaskBg();
};
