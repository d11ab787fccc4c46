#pragma once

#include <QFont>
#include <QTextOption>

class QPainter;
class QPixmap;
class QRect;
class QSize;

/// What the widgets' faces are drawn with. Internal to the library.
namespace kvpainting
{

/// Opacity of an image and of a text on a button that takes no touches; the text stays legible.
constexpr qreal dimmedImage = 0.4;
constexpr qreal dimmedText = 0.5;

/// Draws \a image in the middle of \a area at its natural size, or scaled down to it. Its
/// proportions never change.
void drawImage(QPainter &painter, const QRect &area, const QPixmap &image);

/// Gives \a font the largest pixel size from \a largest down to \a smallest at which \a text fits
/// \a area, or \a smallest. \a flags are Qt::TextFlag; a "\n" starts a new line.
QFont fittedFont(QFont font, int largest, int smallest, const QString &text, const QSize &area,
                 int flags = 0);

/// How a text of several lines is drawn: between words, and within one that is wider than a line.
QTextOption wrapping(Qt::Alignment alignment = Qt::AlignLeft);

/// The height of \a text in lines of \a width that are broken so.
int wrappedHeight(const QFont &font, const QString &text, int width);

/// As fittedFont(), but keeps words whole only down to \a smallestWhole. Where that is not enough
/// the lines are broken as wrapping() says, with the largest font that then fits.
QFont wrappedFont(const QFont &font, int largest, int smallestWhole, int smallest,
                  const QString &text, const QSize &area);

/// Draws \a text with the painter's font and pen; a line that is wider than \a area ends in an
/// ellipsis. \a alignment is Qt::Alignment.
void drawLines(QPainter &painter, const QRect &area, int alignment, const QString &text);

/// Draws a button's text in the middle of \a area with the painter's pen, smaller than \a pixelSize
/// where it must be.
void drawButtonText(QPainter &painter, const QRect &area, const QString &text, int pixelSize);

} // namespace kvpainting
