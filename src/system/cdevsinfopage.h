#pragma once

#include "factorydebug/pageplaceholder.h"

/// Holds the place of the device information page.
class CDevsInfoPage : public PagePlaceholder
{
    Q_OBJECT

public:
    CDevsInfoPage(QRect rect, KvWidget *parent);
};
