#pragma once

#include <QColor>
#include <QFont>
#include <QItemDelegate>
#include <QList>
#include <QPixmap>

/// Base of a list page's delegate: rows 83 pixels high, with the pressed row's background under the
/// one that the list reported last. Subclasses say what is on them.
class ListRowDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    explicit ListRowDelegate(QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

public slots:
    /// The row to paint as pressed from the next repaint on; -1 for none.
    void setIndexPressSlot(int index, bool press);

protected:
    /// What there is to see on a row.
    struct Row
    {
        QString title;
        bool isCurrent; ///< the title is red
        QString value;  ///< on the right, in red
        bool hasArrow;
    };

    /// What is on that row now; asked at each painting.
    virtual Row row(const QModelIndex &index) const = 0;

    static QString title(const QModelIndex &index);

private:
    Q_DISABLE_COPY(ListRowDelegate)

    /// An image that was scaled once for all rows of a size.
    struct Background
    {
        explicit Background(const QString &file);
        const QPixmap &scaledTo(const QSize &size);

        QPixmap image;
        QPixmap scaled;
    };

    /// A row as it was painted, and all that its looks depend on. A list that is dragged paints the
    /// same rows again and again, and a text costs as much as its background.
    struct Picture
    {
        bool isOf(const Picture &other) const;

        Row row;
        bool isPressed;
        QRect place; ///< with its top at 0: where a row lies vertically makes no difference
        QFont font;
        QPixmap pixmap;
    };

    const QPixmap &picture(Picture &wanted) const;
    QPixmap painted(const Picture &picture) const;
    void drawTitle(QPainter *painter, const QRect &rect, const Row &row) const;
    void drawValue(QPainter *painter, const QRect &rect, const QString &value) const;
    void drawArrow(QPainter *painter, const QRect &rect) const;

    int m_pressedRow;
    bool m_pressed; // Kept for pages; what is painted follows the row alone.
    mutable Background m_normalBackground;
    mutable Background m_pressedBackground;
    mutable QList<Picture> m_pictures; // the oldest one first
    QPixmap m_arrow;
};
