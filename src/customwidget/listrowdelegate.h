#pragma once

#include <QItemDelegate>
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

    void drawBackground(QPainter *painter, const QRect &rect, bool isPressed) const;
    void drawTitle(QPainter *painter, const QRect &rect, const Row &row) const;
    void drawValue(QPainter *painter, const QRect &rect, const QString &value) const;
    void drawArrow(QPainter *painter, const QRect &rect) const;

    int m_pressedRow;
    bool m_pressed; // Kept for pages; what is painted follows the row alone.
    mutable Background m_normalBackground;
    mutable Background m_pressedBackground;
    QPixmap m_arrow;
};
