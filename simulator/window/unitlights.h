#pragma once

#include <QObject>

namespace hardware
{
class Unit;
}

namespace simulator
{

class Bezel;

/// Shows on the bezel what shines in the unit: the panel's light on the screen, the key light on
/// the hard keys, and day or night mode.
class UnitLights : public QObject
{
    Q_OBJECT

public:
    UnitLights(hardware::Unit &unit, Bezel &bezel);

private:
    void showPanel();
    void showKeyLight();
    void showMode();

    hardware::Unit &m_unit;
    Bezel &m_bezel;
};

} // namespace simulator
