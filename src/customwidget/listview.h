#pragma once

#include <QListView>
#include <QModelIndex>
#include <QPoint>
#include <QVariant>

class LvScrollBar;
class QStandardItem;

/// A list for a finger: dragging its content scrolls it, a row counts as clicked when the finger is
/// lifted on the row on which it went down, and a wide scroll bar floats over its right edge. It
/// knows nothing of its rows.
class ListView : public QListView
{
    Q_OBJECT

public:
    explicit ListView(QWidget *parent);

    /// The wide bar, never null; the native one still does the scrolling, but cannot be seen.
    LvScrollBar *getVerticalScrollBar() const;

    /// Whether the wide bar is shown while there is something to scroll; it is at first.
    void setCustomScrollBarVisible(bool visible);

public slots:
    /// Announces the row under the finger as pressed; called at the press itself.
    void pressedTimeoutSlot();

signals:
    /// For pages to send; the list itself never does.
    void specailItemDataChanged(QStandardItem *item, QVariant val, bool state);
    /// The row that is pressed now, or -1 for none.
    void setIndexPress(int index, bool press);
    /// A row was clicked. The index is invalid for a tap below the last row.
    void listClicked(QModelIndex index);
    /// Whether the list needs a scroll bar now.
    void scrollbarVisible(bool visible);

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Q_DISABLE_COPY(ListView)

    void placeCustomBar();
    void showCustomBarWhenNeeded();
    void connectBars();
    void beginDrag();
    void dragTo(int y);
    void click(const QModelIndex &index);

    QPoint m_pressPoint;
    QPoint m_lastPoint;
    bool m_dragging;
    bool m_pressed;
    bool m_customBarWanted;
    QModelIndex m_pressedIndex;
    LvScrollBar *m_customBar;
};
