#pragma once

#include "setup/setuppanel.h"

#include "adjustrow.h"
#include "pageonscreen.h"

using Screen = PageOnScreen<CSetupPanelForm>;

struct Row : AdjustRow
{
    int max;
    int offset; // Of its place in a new unit's vendor data.
};

const Row rows[] = {
    {{"brightness", "decreaseBrightness", "bridec", "brightnessText", "increaseBrightness",
      "briinc", 12},
     24,
     256},
    {{"contrast", "decreaseConstast", "condec", "ConstastText", "increaseConstast", "coninc", 12},
     24,
     268},
    {{"hue", "decreaseHue", "huedec", "HueText", "increaseHue", "hueinc", 180}, 360, 260},
    {{"saturation", "decreaseSaturation", "satdec", "SaturationText", "increaseSaturation",
      "satinc", 100},
     0,
     264},
};

const Row &brightness = rows[0];
