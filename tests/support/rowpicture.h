#pragma once

#include <QImage>

class QAbstractItemDelegate;
class QModelIndex;

/// A row of a list, 800 x 83, as its delegate paints it.
QImage paintRow(const QAbstractItemDelegate &delegate, const QModelIndex &index);

/// Whether any pixel within that part of a picture has that colour to the bit.
bool showsColor(const QImage &image, const QRect &area, const QColor &color);

/// The smallest rectangle around all pixels in which two pictures of one size differ.
QRect difference(const QImage &first, const QImage &second);
