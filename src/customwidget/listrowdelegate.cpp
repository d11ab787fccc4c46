#include "listrowdelegate.h"

#include "listrowmodel.h"

#include <QPainter>

namespace
{

const int rowHeight = 83;
const int textPixelSize = 30;
const int titleLeft = 34;
const int arrowLeft = 662;

} // namespace

const QColor ListRowDelegate::normalColor(240, 240, 240);
const QColor ListRowDelegate::currentColor(221, 18, 18);

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
    Background &background = index.row() == m_pressedRow ? m_pressedBackground : m_normalBackground;
    painter->drawPixmap(option.rect.topLeft(), background.scaledTo(option.rect.size()));
    QFont font;
    font.setPixelSize(textPixelSize);
    painter->setFont(font);
    paintRow(painter, option.rect, index);
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

void ListRowDelegate::drawTitle(QPainter *painter, const QRect &rect, const QString &title,
                                const QColor &color)
{
    const QRect area(QPoint(rect.left() + titleLeft, rect.top()),
                     QPoint(rect.right() - rect.left(), rect.bottom()));
    painter->setPen(color);
    painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter, title);
}

void ListRowDelegate::drawArrow(QPainter *painter, const QRect &rect) const
{
    painter->drawPixmap(rect.left() + arrowLeft,
                        rect.top() + (rect.height() - m_arrow.height()) / 2, m_arrow);
}
