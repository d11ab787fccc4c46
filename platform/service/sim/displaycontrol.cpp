#include "service/displaycontrol.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

using hardware::Panel;

namespace
{

Panel &panel()
{
    return unitlink::unit().panel();
}

} // namespace

DisplayControl::DisplayControl() = default;

DisplayControl *DisplayControl::getInstance()
{
    return unitlink::service<DisplayControl>([] { return new DisplayControl; });
}

int DisplayControl::panelBrightness() const
{
    return panel().value(Panel::Brightness);
}

void DisplayControl::setPanelBrightness(int value)
{
    panel().setValue(Panel::Brightness, value);
}

int DisplayControl::panelContrast() const
{
    return panel().value(Panel::Contrast);
}

void DisplayControl::setPanelContrast(int value)
{
    panel().setValue(Panel::Contrast, value);
}

int DisplayControl::panelHue() const
{
    return panel().value(Panel::Hue);
}

void DisplayControl::setPanelHue(int value)
{
    panel().setValue(Panel::Hue, value);
}

double DisplayControl::panelSaturation() const
{
    return panel().saturation();
}

void DisplayControl::setPanelSaturation(double value)
{
    panel().setSaturation(value);
}
