#pragma once

#include <QPoint>
#include <QStringList>
#include <QWidget>

class QAbstractItemView;

namespace simulator
{

/// Looks at the unit's screen as a person does: which texts and buttons are to be seen on it, and
/// where a touch at some place lands. Graphical thread only.
class ScreenReader
{
public:
    explicit ScreenReader(const QWidget &screen);

    /// Where to touch the button with that id, or, for a button without one, with that object name
    /// or text. False with a sentence in \a error when a touch would not reach such a button.
    bool findButton(const QString &id, QPoint *touch, QString *error) const;

    /// Whether such a button is to be seen, disabled or not.
    bool showsButton(const QString &id) const;

    /// The texts that are to be seen: of labels, buttons, groups, pop-ups and rows of lists.
    QStringList texts() const;

private:
    QList<QWidget *> buttons(const QString &id) const;
    QString obstacle(const QWidget *button) const;
    QStringList rowTexts(const QAbstractItemView *list) const;
    bool isSeen(const QWidget *widget, const QRect &area) const;
    bool isSeen(const QWidget *widget) const;
    const QWidget *pageOf(const QWidget *widget) const;
    QPoint onScreen(const QWidget *widget, const QPoint &position) const;

    const QWidget &m_screen;
};

} // namespace simulator
