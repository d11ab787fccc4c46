#include "hardkey.h"

#include "colors.h"

#include <QPainter>

namespace simulator
{

namespace
{

constexpr QColor printColor(118, 120, 124);

/// The printed label with the light shining through it.
QColor lit(const QColor &light)
{
    return QColor(qMax(printColor.red(), light.red()), qMax(printColor.green(), light.green()),
                  qMax(printColor.blue(), light.blue()));
}

QColor faint(QColor color)
{
    color.setAlphaF(0.6);
    return color;
}

} // namespace

HardKey::HardKey(const QString &label, QWidget *parent)
    : QAbstractButton(parent)
{
    setText(label);
    setFocusPolicy(Qt::NoFocus);
    QFont keyFont = font();
    keyFont.setPixelSize(16);
    keyFont.setBold(true);
    keyFont.setLetterSpacing(QFont::AbsoluteSpacing, 1.5);
    setFont(keyFont);
    resize(sizeHint());
}

QSize HardKey::sizeHint() const
{
    return QSize(132, 56);
}

void HardKey::setLight(const QColor &light)
{
    m_light = light;
    update();
}

void HardKey::paintEvent(QPaintEvent *)
{
    QLinearGradient face(0, 0, 0, height());
    face.setColorAt(0, isDown() ? QColor(26, 27, 29) : QColor(70, 72, 76));
    face.setColorAt(1, isDown() ? QColor(36, 38, 41) : QColor(44, 46, 49));

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isDown() ? colors::accent : QColor(14, 15, 16), 2));
    painter.setBrush(face);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 8, 8);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(faint(m_light), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(5, 5, -5, -5), 5, 5);
    painter.setPen(lit(m_light));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace simulator
