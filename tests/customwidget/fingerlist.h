#pragma once

#include "customwidget/listview.h"
#include "support/testunit.h"
#include "system/vendordatadelegate.h"

#include <QImage>
#include <QStringListModel>

/// A list of rows on the screen, where the pages have it: 800 x 414 at (0, 66), rows of 83 pixels.
/// Points are the list's own, the finger's way to them is the screen's.
class FingerList : public QObject
{
    Q_OBJECT

public:
    explicit FingerList(int rows);

    TestUnit &unit() { return m_unit; }
    QWidget &host() { return m_host; }
    ListView &list() { return *m_list; }

    /// A finger in the middle of the list, at that height.
    void press(int y);
    void move(int y);
    void release(int y);

    /// A finger at any point of the list.
    void pressAt(const QPoint &point);
    void moveTo(const QPoint &point);
    void releaseAt(const QPoint &point);

    /// What the window shows. Nothing is asked to paint itself for it.
    QImage shown();

    /// What the list has sent since the last call: "press <row> <flag>", "click <row>",
    /// "needed <flag>", and "beep" for the event at its parent.
    QStringList takeNews();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    TestUnit m_unit;
    QWidget m_host;
    QStringListModel m_model;
    VendorDataDelegate m_delegate;
    ListView *m_list;
    QStringList m_news;
};
