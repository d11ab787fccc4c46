#pragma once

#include <QWidget>

namespace simulator
{

/// The panel's light: lies over the screen and makes what is on it darker or lighter. It lets every
/// touch through.
class Backlight : public QWidget
{
    Q_OBJECT

public:
    explicit Backlight(QWidget *parent);

    /// From 0 to hardware::Panel::brightest; in the middle the screen is as it was drawn. A value
    /// outside counts as the nearest one inside.
    void setBrightness(int brightness);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double m_light = 1; ///< what the screen's colours are multiplied by
};

} // namespace simulator
