#include "backlight.h"

#include "hardware/light/panel.h"

#include <QPainter>

namespace simulator
{

namespace
{
const double darkest = 0.2;
const double lightest = 1.3;
const int middle = hardware::Panel::brightest / 2;
} // namespace

Backlight::Backlight(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void Backlight::setBrightness(int brightness)
{
    const double step = qBound(0, brightness, hardware::Panel::brightest) - middle;
    m_light = step < 0 ? 1 + (1 - darkest) * step / middle : 1 + (lightest - 1) * step / middle;
    // Nothing is painted twice while there is nothing to change.
    setVisible(step != 0);
    update();
}

void Backlight::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_light < 1) {
        painter.fillRect(rect(), QColor::fromRgbF(0, 0, 0, 1 - m_light));
        return;
    }
    // Dodging divides by one less the colour that is painted.
    const double dodge = 1 - 1 / m_light;
    painter.setCompositionMode(QPainter::CompositionMode_ColorDodge);
    painter.fillRect(rect(), QColor::fromRgbF(dodge, dodge, dodge));
}

} // namespace simulator
