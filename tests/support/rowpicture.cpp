#include "rowpicture.h"

#include <QAbstractItemDelegate>
#include <QColor>
#include <QPainter>
#include <QStyleOptionViewItem>

QImage paintRow(const QAbstractItemDelegate &delegate, const QModelIndex &index)
{
    QImage image(800, 83, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    delegate.paint(&painter, option, index);
    return image;
}

bool showsColor(const QImage &image, const QRect &area, const QColor &color)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixel(x, y) == color.rgb()) {
                return true;
            }
        }
    }
    return false;
}

QRect difference(const QImage &first, const QImage &second)
{
    QRect changed;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            if (first.pixel(x, y) != second.pixel(x, y)) {
                changed |= QRect(x, y, 1, 1);
            }
        }
    }
    return changed;
}
