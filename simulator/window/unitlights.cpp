#include "unitlights.h"

#include "backlight.h"
#include "bezel.h"
#include "hardkey.h"
#include "modeindicator.h"

#include "hardware/unit/unit.h"

#include <QColor>

using hardware::DayNight;
using hardware::KeyColor;
using hardware::KeyLight;
using hardware::Panel;

namespace simulator
{

UnitLights::UnitLights(hardware::Unit &unit, Bezel &bezel)
    : m_unit(unit)
    , m_bezel(bezel)
{
    // The devices may change on other threads; what is shown is asked for on this one.
    connect(&unit.panel(), &Panel::pictureChanged, this, &UnitLights::showPanel);
    connect(&unit.keyLight(), &KeyLight::colorChanged, this, &UnitLights::showKeyLight);
    connect(&unit.dayNight(), &DayNight::modeChanged, this, &UnitLights::showMode);
    showPanel();
    showKeyLight();
    showMode();
}

void UnitLights::showPanel()
{
    m_bezel.backlight().setBrightness(m_unit.panel().value(Panel::Brightness));
}

void UnitLights::showKeyLight()
{
    const KeyColor color = m_unit.keyLight().color();
    const double brightest = KeyLight::brightest;
    const QColor light =
        QColor::fromRgbF(color.red / brightest, color.green / brightest, color.blue / brightest);
    m_bezel.homeKey().setLight(light);
    m_bezel.factoryKey().setLight(light);
}

void UnitLights::showMode()
{
    m_bezel.modeIndicator().setNight(m_unit.dayNight().mode() == DayNight::Night);
}

} // namespace simulator
