#include "listrowdelegate.h"

#include "listrowmodel.h"

#include <QPainter>

namespace
{

constexpr int rowHeight = 83;
constexpr int textPixelSize = 30;
constexpr int titleLeft = 34;
constexpr int valueRightMargin = 137; // The arrow and what is beside it.
constexpr int arrowLeft = 662;

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
    painter->save();
    const Row shown = row(index);
    drawBackground(painter, option.rect, index.row() == m_pressedRow);
    QFont font;
    font.setPixelSize(textPixelSize);
    painter->setFont(font);
    drawTitle(painter, option.rect, shown);
    drawValue(painter, option.rect, shown.value);
    if (shown.hasArrow) {
        drawArrow(painter, option.rect);
    }
    painter->restore();
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

void ListRowDelegate::drawBackground(QPainter *painter, const QRect &rect, bool isPressed) const
{
    Background &background = isPressed ? m_pressedBackground : m_normalBackground;
    painter->drawPixmap(rect.topLeft(), background.scaledTo(rect.size()));
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
