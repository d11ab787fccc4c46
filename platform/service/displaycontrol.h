#pragma once

#include "kvglobal/kvglobal.h"

/// The service behind the display panel's picture. What is set is applied at once, whatever it is;
/// after a restart the picture is the one in the vendor data. Any thread.
class KV_API DisplayControl
{
public:
    static DisplayControl *getInstance();

    /// The panel's adjustments take 0 to 24, the hue 0 to 360 degrees.
    int panelBrightness() const;
    void setPanelBrightness(int value);
    int panelContrast() const;
    void setPanelContrast(int value);
    int panelHue() const;
    void setPanelHue(int value);

    /// 0 is grey, 1 the colours as they are, and 1.99 the strongest.
    double panelSaturation() const;
    void setPanelSaturation(double value);

private:
    DisplayControl();
};
