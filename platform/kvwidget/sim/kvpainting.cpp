#include "kvpainting.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QStringList>
#include <QtMath>
#include <QWidget>

namespace
{

constexpr int buttonTextMargin = 6;
constexpr int smallestButtonText = 10;

bool fits(const QFont &font, const QString &text, const QSize &area, int flags)
{
    const QRect bounds = QFontMetrics(font).boundingRect(QRect(QPoint(), area), flags, text);
    return bounds.width() <= area.width() && bounds.height() <= area.height();
}

} // namespace

void kvpainting::drawImage(QPainter &painter, const QRect &area, const QPixmap &image)
{
    if (image.isNull()) {
        return;
    }
    QSize size = image.size() / image.devicePixelRatio();
    if (size.width() > area.width() || size.height() > area.height()) {
        size.scale(area.size(), Qt::KeepAspectRatio);
    }
    const int left = area.left() + (area.width() - size.width()) / 2;
    const int top = area.top() + (area.height() - size.height()) / 2;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRect(QPoint(left, top), size), image);
}

QFont kvpainting::fittedFont(QFont font, int largest, int smallest, const QString &text,
                             const QSize &area, int flags)
{
    for (int pixelSize = largest; pixelSize > smallest; --pixelSize) {
        font.setPixelSize(pixelSize);
        if (fits(font, text, area, flags)) {
            return font;
        }
    }
    font.setPixelSize(qMin(largest, smallest));
    return font;
}

QTextOption kvpainting::wrapping(Qt::Alignment alignment)
{
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

int kvpainting::wrappedHeight(const QFont &font, const QString &text, int width)
{
    QImage paper(1, 1, QImage::Format_RGB32);
    QPainter painter(&paper);
    painter.setFont(font);
    const QRectF lines(0, 0, width, QWIDGETSIZE_MAX);
    return qCeil(painter.boundingRect(lines, text, wrapping()).height());
}

QFont kvpainting::wrappedFont(const QFont &font, int largest, int smallestWhole, int smallest,
                              const QString &text, const QSize &area)
{
    QFont fitted = fittedFont(font, largest, smallestWhole, text, area, Qt::TextWordWrap);
    if (fits(fitted, text, area, Qt::TextWordWrap)) {
        return fitted;
    }
    for (int pixelSize = largest; pixelSize >= smallest; --pixelSize) {
        fitted.setPixelSize(pixelSize);
        if (wrappedHeight(fitted, text, area.width()) <= area.height()) {
            break;
        }
    }
    return fitted;
}

void kvpainting::drawLines(QPainter &painter, const QRect &area, int alignment, const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines) {
        // What is not seen needs no room.
        while (line.endsWith(QLatin1Char(' '))) {
            line.chop(1);
        }
        line = painter.fontMetrics().elidedText(line, Qt::ElideRight, area.width());
    }
    painter.drawText(area, alignment, lines.join(QLatin1Char('\n')));
}

void kvpainting::drawButtonText(QPainter &painter, const QRect &area, const QString &text,
                                int pixelSize)
{
    const QRect textArea = area.adjusted(buttonTextMargin, 0, -buttonTextMargin, 0);
    painter.setFont(
        fittedFont(painter.font(), pixelSize, smallestButtonText, text, textArea.size()));
    drawLines(painter, textArea, Qt::AlignCenter, text);
}
