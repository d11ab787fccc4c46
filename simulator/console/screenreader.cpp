#include "screenreader.h"

#include "kvappframework/sim/screenlayer.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QStyleOptionButton>

#include <algorithm>

namespace simulator
{

namespace
{

const char *const idProperties[] = {"buttonID", "buttonId"};
const char *const textProperties[] = {"text", "displayText", "displayString"};

/// Roles of list rows that may hold texts: lists with a delegate of their own keep them in the
/// first user roles.
const int lastUserRole = Qt::UserRole + 7;

bool isButton(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) != nullptr
        || std::any_of(std::begin(idProperties), std::end(idProperties),
                       [widget](const char *name) { return widget->property(name).isValid(); });
}

QString buttonId(const QWidget *widget)
{
    for (const char *name : idProperties) {
        const QVariant id = widget->property(name);
        if (id.isValid()) {
            return id.toString();
        }
    }
    return QString();
}

QStringList texts(const QWidget *widget)
{
    QStringList found;
    for (const char *name : textProperties) {
        const QVariant text = widget->property(name);
        if (text.isValid()) {
            found.append(text.toString());
        }
    }
    const auto *group = qobject_cast<const QGroupBox *>(widget);
    if (group != nullptr) {
        found.append(group->title());
    }
    return found;
}

bool isCalled(const QWidget *button, const QString &name)
{
    const QString id = buttonId(button);
    return id.isEmpty() ? button->objectName() == name || texts(button).contains(name) : id == name;
}

bool isUsable(const QWidget *button)
{
    return button->isEnabled() && !button->property("disableState").toBool();
}

/// Check boxes and radio buttons take touches only on their mark and text, which need not reach
/// the middle.
QRect touchArea(const QWidget *widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    const bool radio = qobject_cast<const QRadioButton *>(widget) != nullptr;
    if (!radio && qobject_cast<const QCheckBox *>(widget) == nullptr) {
        return widget->rect();
    }
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    option.icon = button->icon();
    option.iconSize = button->iconSize();
    return button->style()->subElementRect(
        radio ? QStyle::SE_RadioButtonClickRect : QStyle::SE_CheckBoxClickRect, &option, button);
}

QString describe(const QWidget *widget)
{
    const QString id = buttonId(widget);
    const QString name = id.isEmpty() ? widget->objectName() : id;
    const QString type = QString::fromLatin1(widget->metaObject()->className());
    return name.isEmpty() ? type : QStringLiteral("%1 \"%2\"").arg(type, name);
}

QStringList texts(const QModelIndex &row)
{
    QStringList found(row.data().toString());
    for (int role = Qt::UserRole; role <= lastUserRole; ++role) {
        found.append(row.data(role).toString());
    }
    return found;
}

} // namespace

ScreenReader::ScreenReader(const QWidget &screen)
    : m_screen(screen)
{
}

bool ScreenReader::findButton(const QString &id, QPoint *touch, QString *error) const
{
    const QList<QWidget *> candidates = buttons(id);
    *error = QStringLiteral("there is no button \"%1\" on the screen").arg(id);
    for (const QWidget *button : candidates) {
        const QString problem = obstacle(button);
        if (problem.isEmpty()) {
            *touch = onScreen(button, touchArea(button).center());
            return true;
        }
        *error = QStringLiteral("the button \"%1\" %2").arg(id, problem);
    }
    return false;
}

bool ScreenReader::showsButton(const QString &id) const
{
    const QList<QWidget *> candidates = buttons(id);
    return std::any_of(candidates.cbegin(), candidates.cend(),
                       [this](const QWidget *button) { return isSeen(button); });
}

QStringList ScreenReader::texts() const
{
    QStringList seen;
    const QList<QWidget *> widgets = m_screen.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (isSeen(widget)) {
            seen.append(simulator::texts(widget));
        }
        const auto *list = qobject_cast<const QAbstractItemView *>(widget);
        if (list != nullptr) {
            seen.append(rowTexts(list));
        }
    }
    seen.removeAll(QString());
    return seen;
}

QStringList ScreenReader::rowTexts(const QAbstractItemView *list) const
{
    QStringList seen;
    const QAbstractItemModel *model = list->model();
    for (int row = 0; model != nullptr && row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, 0);
        if (isSeen(list->viewport(), list->visualRect(index))) {
            seen.append(simulator::texts(index));
        }
    }
    return seen;
}

QList<QWidget *> ScreenReader::buttons(const QString &id) const
{
    QList<QWidget *> found;
    const QList<QWidget *> widgets = m_screen.findChildren<QWidget *>();
    std::copy_if(widgets.cbegin(), widgets.cend(), std::back_inserter(found),
                 [&id](const QWidget *widget) { return isButton(widget) && isCalled(widget, id); });
    return found;
}

/// What keeps a touch from working the button; empty when nothing does.
QString ScreenReader::obstacle(const QWidget *button) const
{
    if (!button->isVisible()) {
        return QStringLiteral("is hidden");
    }
    const QPoint touch = onScreen(button, touchArea(button).center());
    const QWidget *hit = m_screen.rect().contains(touch) ? m_screen.childAt(touch) : nullptr;
    if (hit == nullptr) {
        return QStringLiteral("is outside the screen");
    }
    if (hit != button && !button->isAncestorOf(hit)) {
        return QStringLiteral("is covered by %1").arg(describe(hit));
    }
    return isUsable(button) ? QString() : QStringLiteral("is disabled");
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

QPoint ScreenReader::onScreen(const QWidget *widget, const QPoint &position) const
{
    return widget->mapTo(&m_screen, position);
}

} // namespace simulator
