#include "listrowdelegate.h"

#include "listrowmodel.h"

#include <QPainter>

#include <algorithm>

namespace
{

const int rowHeight = 83;
const int textPixelSize = 30;
const int titleLeft = 34;
const int valueRightMargin = 137; // The arrow and what is beside it.
const int arrowLeft = 662;

/// More than a list shows at once, with some that are pressed.
const int mostPictures = 12;

QColor textColor(bool isCurrent)
{
    return isCurrent ? QColor(221, 18, 18) : QColor(240, 240, 240);
}

} // namespace

ListRowDelegate::Background::Background(const QString &file)
    : image(file)
{
}

const QPixmap &ListRowDelegate::Background::scaledTo(const QSize &size)
{
    if (scaled.size() != size) {
        scaled = image.scaled(size);
    }
    return scaled;
}

bool ListRowDelegate::Picture::isOf(const Picture &other) const
{
    return row.title == other.row.title && row.isCurrent == other.row.isCurrent
        && row.value == other.row.value && row.hasArrow == other.row.hasArrow
        && isPressed == other.isPressed && place == other.place && font == other.font;
}

ListRowDelegate::ListRowDelegate(QObject *parent)
    : QItemDelegate(parent)
    , m_pressedRow(-1)
    , m_pressed(true)
    , m_normalBackground(QStringLiteral(":/images/list_item_bg_n.png"))
    , m_pressedBackground(QStringLiteral(":/images/list_item_bg_p.png"))
    , m_arrow(QStringLiteral(":/images/ic_list_next.png"))
{
}

void ListRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    Picture wanted;
    wanted.row = row(index);
    wanted.isPressed = index.row() == m_pressedRow;
    wanted.place = option.rect.translated(0, -option.rect.top());
    wanted.font.setPixelSize(textPixelSize);
    if (!wanted.place.isEmpty()) {
        painter->drawPixmap(option.rect.topLeft(), picture(wanted));
    }
}

QSize ListRowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    Q_UNUSED(index);
    return QSize(option.rect.width(), rowHeight);
}

void ListRowDelegate::setIndexPressSlot(int index, bool press)
{
    m_pressedRow = index;
    m_pressed = press;
}

QString ListRowDelegate::title(const QModelIndex &index)
{
    return index.data(ListRowModel::TitleRole).toString();
}

/// The one that is kept; else paints it into \a wanted and keeps that.
const QPixmap &ListRowDelegate::picture(Picture &wanted) const
{
    const auto known =
        std::find_if(m_pictures.constBegin(), m_pictures.constEnd(),
                     [&wanted](const Picture &picture) { return picture.isOf(wanted); });
    if (known != m_pictures.constEnd()) {
        return known->pixmap;
    }
    if (m_pictures.size() == mostPictures) {
        m_pictures.removeFirst();
    }
    wanted.pixmap = painted(wanted);
    m_pictures.append(wanted);
    return wanted.pixmap;
}

QPixmap ListRowDelegate::painted(const Picture &picture) const
{
    const QRect &rect = picture.place;
    Background &background = picture.isPressed ? m_pressedBackground : m_normalBackground;
    QPixmap pixmap = background.scaledTo(rect.size());
    QPainter painter(&pixmap);
    painter.translate(-rect.left(), 0);
    painter.setFont(picture.font);
    drawTitle(&painter, rect, picture.row);
    drawValue(&painter, rect, picture.row.value);
    if (picture.row.hasArrow) {
        drawArrow(&painter, rect);
    }
    return pixmap;
}

void ListRowDelegate::drawTitle(QPainter *painter, const QRect &rect, const Row &row) const
{
    const QRect area(QPoint(rect.left() + titleLeft, rect.top()),
                     QPoint(rect.right() - rect.left(), rect.bottom()));
    painter->setPen(textColor(row.isCurrent));
    painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter, row.title);
}

void ListRowDelegate::drawValue(QPainter *painter, const QRect &rect, const QString &value) const
{
    painter->setPen(textColor(true));
    painter->drawText(rect.left(), rect.top(), rect.right() - 2 * rect.left() - valueRightMargin,
                      rect.height(), Qt::AlignRight | Qt::AlignVCenter, value);
}

void ListRowDelegate::drawArrow(QPainter *painter, const QRect &rect) const
{
    painter->drawPixmap(rect.left() + arrowLeft,
                        rect.top() + (rect.height() - m_arrow.height()) / 2, m_arrow);
}
