#include "service/displaycontrol.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

using hardware::Panel;

namespace
{

Panel &panel()
{
    return unitlink::unit().panel();
}

int ask(const char *call, Panel::Item item)
{
    return unitlink::answer(call, 0, [item] { return panel().value(item); });
}

void tell(const char *call, Panel::Item item, int value)
{
    if (!unitlink::fails(call)) {
        panel().setValue(item, value);
    }
}

} // namespace

DisplayControl::DisplayControl() = default;

DisplayControl *DisplayControl::getInstance()
{
    return unitlink::service<DisplayControl>([] { return new DisplayControl; });
}

int DisplayControl::panelBrightness() const
{
    return ask("DisplayControl::panelBrightness", Panel::Brightness);
}

void DisplayControl::setPanelBrightness(int value)
{
    tell("DisplayControl::setPanelBrightness", Panel::Brightness, value);
}

int DisplayControl::panelContrast() const
{
    return ask("DisplayControl::panelContrast", Panel::Contrast);
}

void DisplayControl::setPanelContrast(int value)
{
    tell("DisplayControl::setPanelContrast", Panel::Contrast, value);
}

int DisplayControl::panelHue() const
{
    return ask("DisplayControl::panelHue", Panel::Hue);
}

void DisplayControl::setPanelHue(int value)
{
    tell("DisplayControl::setPanelHue", Panel::Hue, value);
}

double DisplayControl::panelSaturation() const
{
    return unitlink::answer("DisplayControl::panelSaturation", 0.0,
                            [] { return panel().saturation(); });
}

void DisplayControl::setPanelSaturation(double value)
{
    if (!unitlink::fails("DisplayControl::setPanelSaturation")) {
        panel().setSaturation(value);
    }
}
