#include "modeindicator.h"

#include "colors.h"

#include <QPainter>
#include <QPainterPath>

namespace simulator
{

namespace
{

constexpr QSize indicatorSize(110, 28);
constexpr QRectF disc(88, 6, 16, 16);
const int rays = 8;

QPainterPath moon()
{
    QPainterPath whole;
    whole.addEllipse(disc);
    QPainterPath bite;
    bite.addEllipse(disc.translated(6, -3));
    return whole - bite;
}

void drawSun(QPainter &painter)
{
    painter.drawEllipse(disc.adjusted(3, 3, -3, -3));
    painter.translate(disc.center());
    for (int ray = 0; ray < rays; ++ray) {
        painter.drawRect(QRectF(-1, -10, 2, 4));
        painter.rotate(360.0 / rays);
    }
}

} // namespace

ModeIndicator::ModeIndicator(QWidget *parent)
    : QWidget(parent)
{
    resize(indicatorSize);
    QFont labelFont = font();
    labelFont.setPixelSize(15);
    setFont(labelFont);
}

bool ModeIndicator::isNight() const
{
    return m_night;
}

void ModeIndicator::setNight(bool night)
{
    m_night = night;
    update();
}

void ModeIndicator::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colors::dimmedText);
    painter.drawText(rect().adjusted(0, 0, -34, 0), Qt::AlignRight | Qt::AlignVCenter,
                     m_night ? tr("Night") : tr("Day"));
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_night ? colors::accent : colors::text);
    if (m_night) {
        painter.drawPath(moon());
    } else {
        drawSun(painter);
    }
}

} // namespace simulator
