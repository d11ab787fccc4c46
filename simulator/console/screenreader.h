#pragma once

#include <QPair>
#include <QPoint>
#include <QStringList>
#include <QWidget>

#include <functional>

class QAbstractItemView;

namespace simulator
{

/// Looks at the unit's screen as a person does: which texts and buttons are to be seen on it, and
/// where a touch at some place lands. Graphical thread only.
class ScreenReader
{
public:
    struct Button
    {
        QString name;      ///< Its id, or, for a button without one, its object name or text.
        QRect area;        ///< In pixels of the screen.
        QStringList state; ///< See buttonface::state().
        QString cover;     ///< What keeps touches from it: "is covered by …"; or empty.
        QStringList texts;
    };

    explicit ScreenReader(const QWidget &screen);

    /// Where to touch the button with that id, or, for a button without one, with that object name
    /// or text. False with a sentence in \a error when a touch would not reach such a button; it
    /// names those that may have been meant.
    bool findButton(const QString &id, QPoint *touch, QString *error) const;

    /// The name by which findButton() finds the button at \a place, and where a touch surely does
    /// the same as in its middle; an empty name when no button is there, or when the name finds
    /// another.
    QString buttonAt(const QPoint &place, QRect *area) const;

    /// Whether such a button is to be seen, disabled or not.
    bool showsButton(const QString &id) const;

    /// The buttons that are to be seen, in the order in which one reads.
    QList<Button> seenButtons() const;

    struct Row
    {
        QString text; ///< The first of those in it.
        QRect area;   ///< In pixels of the screen.
    };

    /// The rows of lists that are to be seen, each list's from its top on.
    QList<Row> seenRows() const;

    /// The texts that are to be seen, in the order in which one reads: of labels, buttons, groups,
    /// pop-ups and rows of lists.
    QStringList texts() const;

    /// The same without rows of lists, which have to be asked for their texts: nobody notices.
    QStringList widgetTexts() const;

    /// The same as texts() without those of buttons.
    QStringList plainTexts() const;

    /// The pages that are to be seen, those behind others first. Of each the class, and behind it
    /// that of the part that fills most of the screen, and so on.
    QList<QStringList> pages() const;

private:
    using Text = QPair<QRect, QString>; // with its place

    enum Rows { WithRows, WithoutRows };

    QStringList texts(const std::function<bool(const QWidget *)> &isWanted,
                      Rows rows = WithRows) const;
    QList<Text> rowTexts(const QAbstractItemView *list) const;
    QList<QWidget *> buttons(const QString &id) const;
    QString hint(const QString &id) const;
    QString obstacle(const QWidget *button) const;
    QString cover(const QWidget *button) const;
    bool isSeen(const QWidget *widget, const QRect &area) const;
    bool isSeen(const QWidget *widget) const;
    const QWidget *pageOf(const QWidget *widget) const;
    const QWidget *mainPartOf(const QWidget *page) const;
    QPoint onScreen(const QWidget *widget, const QPoint &position) const;
    QRect onScreen(const QWidget *widget, const QRect &area) const;

    const QWidget &m_screen;
};

} // namespace simulator
