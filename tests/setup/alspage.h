#pragma once

#include "setup/csetupalstest.h"

#include "adjustrow.h"
#include "pageonscreen.h"

using Screen = PageOnScreen<CSetupALSTest>;

const AdjustRow rows[] = {
    {"day", "labDayTarget", "DayDst [max:1000]", "decreaseDay", "condec", "dayText", "increaseDay",
     "coninc", 300},
    {"night", "labNightTarget", "NightDst [min:0]", "decreaseNight", "huedec", "nightText",
     "increaseNight", "hueinc", 100},
};

const QString effects = QStringLiteral("/^(log|als) /");
