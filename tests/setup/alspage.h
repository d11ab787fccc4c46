#pragma once

#include "setup/csetupalstest.h"

#include "adjustrow.h"
#include "pageonscreen.h"

using Screen = PageOnScreen<CSetupALSTest>;

const AdjustRow rows[] = {
    {"day", "decreaseDay", "condec", "dayText", "increaseDay", "coninc", 300},
    {"night", "decreaseNight", "huedec", "nightText", "increaseNight", "hueinc", 100},
};

const QString effects = QStringLiteral("/^(log|als) /");
