#include "screenlabel.h"

namespace simulator
{

ScreenLabel::ScreenLabel(const QRect &geometry, int pixelSize, const QColor &color,
                         const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    QFont labelFont = font();
    labelFont.setPixelSize(pixelSize);
    setFont(labelFont);
    setColor(color);
    setAlignment(Qt::AlignCenter);
    setGeometry(geometry);
}

void ScreenLabel::setColor(const QColor &color)
{
    QPalette labelPalette = palette();
    labelPalette.setColor(QPalette::WindowText, color);
    setPalette(labelPalette);
}

} // namespace simulator
