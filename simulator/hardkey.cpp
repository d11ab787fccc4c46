#include "hardkey.h"

#include "colors.h"

#include <QPainter>

namespace simulator
{

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
    painter.setPen(isDown() ? colors::accent : colors::text);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace simulator
