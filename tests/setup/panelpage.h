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
    {{"brightness", "label_brightness", "Brightness[0,24]", "decreaseBrightness", "bridec",
      "brightnessText", "increaseBrightness", "briinc", 12},
     24,
     256},
    {{"contrast", "label_Constast", "Constast[0,24]", "decreaseConstast", "condec", "ConstastText",
      "increaseConstast", "coninc", 12},
     24,
     268},
    {{"hue", "label_Hue", "Hue[0,360]", "decreaseHue", "huedec", "HueText", "increaseHue", "hueinc",
      180},
     360,
     260},
    {{"saturation", "label_Saturation", "Saturation[0,1.99]", "decreaseSaturation", "satdec",
      "SaturationText", "increaseSaturation", "satinc", 100},
     0,
     264},
};

const Row &brightness = rows[0];
