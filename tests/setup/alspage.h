#pragma once

#include "setup/csetupalstest.h"

#include "adjustbuttons.h"
#include "pageonscreen.h"

using Screen = PageOnScreen<CSetupALSTest>;

const QString effects = QStringLiteral("/^(log|als) /");
