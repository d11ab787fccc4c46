#pragma once

#include <QItemDelegate>
#include <QPixmap>

/// Base of a list page's delegate: rows 83 pixels high, with the pressed row's background under the
/// one that the list reported last. Subclasses paint what is on them.
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
    /// Paints a row onto its background, with the rows' font; \a painter is restored afterwards.
    virtual void paintRow(QPainter *painter, const QRect &rect, const QModelIndex &index) const = 0;

    static QString title(const QModelIndex &index);
    static void drawTitle(QPainter *painter, const QRect &rect, const QString &title,
                          const QColor &color);
    void drawArrow(QPainter *painter, const QRect &rect) const;

    static const QColor normalColor;
    /// Of what is current.
    static const QColor currentColor;

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

    int m_pressedRow;
    bool m_pressed; // Kept for pages; what is painted follows the row alone.
    mutable Background m_normalBackground;
    mutable Background m_pressedBackground;
    QPixmap m_arrow;
};
