#include "screenreader.h"

#include "buttonface.h"
#include "nearest.h"

#include "kvappframework/sim/screenlayer.h"

#include <QAbstractItemView>

#include <algorithm>
#include <utility>

namespace simulator
{

namespace
{

/// Roles of list rows that may hold texts: lists with a delegate of their own keep them in the
/// first user roles.
const int lastUserRole = Qt::UserRole + 7;

QStringList textsOf(const QModelIndex &row)
{
    QStringList found(row.data().toString());
    for (int role = Qt::UserRole; role <= lastUserRole; ++role) {
        found.append(row.data(role).toString());
    }
    found.removeDuplicates();
    return found;
}

/// From top to bottom, in a line from left to right.
bool isReadBefore(const QRect &one, const QRect &other)
{
    return std::make_pair(one.top(), one.left()) < std::make_pair(other.top(), other.left());
}

} // namespace

ScreenReader::ScreenReader(const QWidget &screen)
    : m_screen(screen)
{
}

bool ScreenReader::findButton(const QString &id, QPoint *touch, QString *error) const
{
    const QList<QWidget *> candidates = buttons(id);
    if (candidates.isEmpty()) {
        *error = QStringLiteral("there is no button \"%1\" on the screen").arg(id) + hint(id);
    }
    for (const QWidget *button : candidates) {
        const QString problem = obstacle(button);
        if (problem.isEmpty()) {
            *touch = onScreen(button, buttonface::touchArea(button).center());
            return true;
        }
        *error = QStringLiteral("the button \"%1\" %2").arg(id, problem);
    }
    return false;
}

QString ScreenReader::buttonAt(const QPoint &place, QRect *area) const
{
    const QWidget *button = buttonface::buttonOf(m_screen.childAt(place));
    const QString name = button == nullptr ? QString() : buttonface::name(button);
    QPoint touch;
    QString ignored;
    if (name.isEmpty() || !findButton(name, &touch, &ignored)
        || buttonface::buttonOf(m_screen.childAt(touch)) != button) {
        return QString();
    }
    *area = onScreen(button, buttonface::sureTouchArea(button));
    return name;
}

bool ScreenReader::showsButton(const QString &id) const
{
    const QList<QWidget *> candidates = buttons(id);
    return std::any_of(candidates.cbegin(), candidates.cend(),
                       [this](const QWidget *button) { return isSeen(button); });
}

/// Which buttons may have been meant, by their names or by what is written on them.
QString ScreenReader::hint(const QString &id) const
{
    QList<QPair<QString, QString>> names;
    const QList<Button> buttons = seenButtons();
    for (const Button &button : buttons) {
        names.append({button.name, button.name});
        for (const QString &text : button.texts) {
            names.append({text, button.name});
        }
    }
    return nearHint(id, names);
}

QStringList ScreenReader::texts() const
{
    return texts([](const QWidget *) { return true; });
}

QStringList ScreenReader::widgetTexts() const
{
    return texts([](const QWidget *) { return true; }, WithoutRows);
}

QStringList ScreenReader::plainTexts() const
{
    return texts([](const QWidget *widget) { return !buttonface::isButton(widget); });
}

QList<ScreenReader::Button> ScreenReader::seenButtons() const
{
    QList<Button> seen;
    const QList<QWidget *> widgets = m_screen.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (buttonface::isButton(widget) && isSeen(widget)) {
            QStringList written = buttonface::texts(widget);
            written.removeAll(QString());
            seen.append({buttonface::name(widget), onScreen(widget, widget->rect()),
                         buttonface::state(widget), cover(widget), written});
        }
    }
    std::stable_sort(seen.begin(), seen.end(), [](const Button &one, const Button &other) {
        return isReadBefore(one.area, other.area);
    });
    return seen;
}

QList<ScreenReader::Row> ScreenReader::seenRows() const
{
    QList<Row> rows;
    const QList<QAbstractItemView *> lists = m_screen.findChildren<QAbstractItemView *>();
    for (const QAbstractItemView *list : lists) {
        const QList<Text> texts = rowTexts(list);
        for (const Text &text : texts) {
            const bool isSameRow = !rows.isEmpty() && rows.constLast().area == text.first;
            if (!text.second.isEmpty() && !isSameRow) {
                rows.append({text.second, text.first});
            }
        }
    }
    return rows;
}

QList<QStringList> ScreenReader::pages() const
{
    QList<QStringList> pages;
    const QList<QWidget *> widgets = m_screen.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (pageOf(widget) == widget && isSeen(widget)) {
            pages.append(QStringList());
            for (const QWidget *part = widget; part != nullptr; part = mainPartOf(part)) {
                pages.last().append(QString::fromLatin1(part->metaObject()->className()));
            }
        }
    }
    return pages;
}

/// The texts of the widgets that are wanted, in the order in which they are read.
QStringList ScreenReader::texts(const std::function<bool(const QWidget *)> &isWanted,
                                Rows rows) const
{
    QList<Text> seen;
    const QList<QWidget *> widgets = m_screen.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (isSeen(widget) && isWanted(widget)) {
            const QStringList written = buttonface::texts(widget);
            for (const QString &text : written) {
                seen.append({onScreen(widget, widget->rect()), text});
            }
        }
        const auto *list = qobject_cast<const QAbstractItemView *>(widget);
        if (list != nullptr && rows == WithRows) {
            seen.append(rowTexts(list));
        }
    }
    std::stable_sort(seen.begin(), seen.end(), [](const Text &one, const Text &other) {
        return isReadBefore(one.first, other.first);
    });
    QStringList texts;
    for (const Text &text : qAsConst(seen)) {
        texts.append(text.second);
    }
    texts.removeAll(QString());
    return texts;
}

QList<ScreenReader::Text> ScreenReader::rowTexts(const QAbstractItemView *list) const
{
    QList<Text> seen;
    const QAbstractItemModel *model = list->model();
    for (int row = 0; model != nullptr && row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, 0);
        const QRect area = list->visualRect(index);
        if (isSeen(list->viewport(), area)) {
            const QStringList written = textsOf(index);
            for (const QString &text : written) {
                seen.append({onScreen(list->viewport(), area), text});
            }
        }
    }
    return seen;
}

QList<QWidget *> ScreenReader::buttons(const QString &id) const
{
    QList<QWidget *> found;
    const QList<QWidget *> widgets = m_screen.findChildren<QWidget *>();
    std::copy_if(widgets.cbegin(), widgets.cend(), std::back_inserter(found),
                 [&id](const QWidget *widget) {
                     return buttonface::isButton(widget) && buttonface::isCalled(widget, id);
                 });
    return found;
}

/// What keeps a touch from working the button; empty when nothing does.
QString ScreenReader::obstacle(const QWidget *button) const
{
    if (!button->isVisible()) {
        return QStringLiteral("is hidden");
    }
    const QString problem = cover(button);
    return problem.isEmpty() && !buttonface::isUsable(button) ? QStringLiteral("is disabled")
                                                              : problem;
}

/// What keeps a touch from reaching the button; empty when nothing does.
QString ScreenReader::cover(const QWidget *button) const
{
    const QPoint touch = onScreen(button, buttonface::touchArea(button).center());
    const QWidget *hit = m_screen.rect().contains(touch) ? m_screen.childAt(touch) : nullptr;
    if (hit == nullptr) {
        return QStringLiteral("is outside the screen");
    }
    return hit == button || button->isAncestorOf(hit)
        ? QString()
        : QStringLiteral("is covered by %1").arg(buttonface::describe(hit));
}

bool ScreenReader::isSeen(const QWidget *widget) const
{
    return isSeen(widget, widget->rect());
}

/// A page hides what lies below it; within one page, things over others are taken as see-through.
bool ScreenReader::isSeen(const QWidget *widget, const QRect &area) const
{
    const QRect shown = widget->visibleRegion().boundingRect() & area;
    if (!widget->isVisible() || shown.isEmpty()) {
        return false;
    }
    const QWidget *hit = m_screen.childAt(onScreen(widget, shown.center()));
    return hit != nullptr && pageOf(hit) == pageOf(widget);
}

/// The ancestor that lies directly on the screen or on one of its layers.
const QWidget *ScreenReader::pageOf(const QWidget *widget) const
{
    while (widget->parentWidget() != &m_screen
           && qobject_cast<const kvappframework::ScreenLayer *>(widget->parentWidget())
               == nullptr) {
        widget = widget->parentWidget();
    }
    return widget;
}

/// What a page shows in most of the screen: the topmost such part that consists of parts itself;
/// null for a page that shows nothing but itself there.
const QWidget *ScreenReader::mainPartOf(const QWidget *page) const
{
    const QObjectList &parts = page->children();
    for (auto part = parts.crbegin(); part != parts.crend(); ++part) {
        const auto *widget = qobject_cast<const QWidget *>(*part);
        if (widget != nullptr && !buttonface::isButton(widget) && isSeen(widget)
            && 2 * widget->width() * widget->height() > m_screen.width() * m_screen.height()
            && widget->findChild<QWidget *>() != nullptr) {
            return widget;
        }
    }
    return nullptr;
}

QPoint ScreenReader::onScreen(const QWidget *widget, const QPoint &position) const
{
    return widget->mapTo(&m_screen, position);
}

QRect ScreenReader::onScreen(const QWidget *widget, const QRect &area) const
{
    return QRect(onScreen(widget, area.topLeft()), area.size());
}

} // namespace simulator
