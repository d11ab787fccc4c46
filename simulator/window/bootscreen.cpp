#include "bootscreen.h"

#include "colors.h"
#include "screenlabel.h"

#include <QPainter>

namespace simulator
{

BootScreen::BootScreen(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_NoMousePropagation);
    setAttribute(Qt::WA_OpaquePaintEvent);
    new ScreenLabel(QRect(0, 176, 800, 48), 40, colors::text, tr("Simulated head unit"), this);
    new ScreenLabel(QRect(0, 272, 800, 28), 22, colors::dimmedText, tr("Starting"), this);
}

void BootScreen::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    painter.fillRect(340, 244, 120, 4, colors::accent);
}

} // namespace simulator
