#include "buttonface.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QVariant>

#include <algorithm>

namespace simulator
{

namespace buttonface
{

namespace
{

const char *const idProperties[] = {"buttonID", "buttonId"};
const char *const textProperties[] = {"text", "displayText", "displayString"};

QString id(const QWidget *widget)
{
    for (const char *name : idProperties) {
        const QVariant id = widget->property(name);
        if (id.isValid()) {
            return id.toString();
        }
    }
    return QString();
}

QString oneOf(bool which, const char *yes, const char *no)
{
    return QString::fromLatin1(which ? yes : no);
}

} // namespace

bool isButton(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) != nullptr
        || std::any_of(std::begin(idProperties), std::end(idProperties),
                       [widget](const char *name) { return widget->property(name).isValid(); });
}

const QWidget *buttonOf(const QWidget *widget)
{
    while (widget != nullptr && !isButton(widget)) {
        widget = widget->parentWidget();
    }
    return widget;
}

QString name(const QWidget *button)
{
    QStringList names = QStringList({id(button), button->objectName()}) + texts(button);
    names.removeAll(QString());
    return names.value(0);
}

bool isCalled(const QWidget *button, const QString &name)
{
    const QString ownId = id(button);
    return ownId.isEmpty() ? button->objectName() == name || texts(button).contains(name)
                           : ownId == name;
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

bool isUsable(const QWidget *button)
{
    return button->isEnabled() && !button->property("disableState").toBool();
}

QStringList state(const QWidget *button)
{
    QStringList words(oneOf(isUsable(button), "enabled", "disabled"));
    if (button->property("isDown").toBool() || button->property("down").toBool()) {
        words.append(QStringLiteral("pressed"));
    }
    const QVariant position = button->property("state");
    if (position.isValid()) {
        words.append(oneOf(position.toBool(), "on", "off"));
    }
    if (button->property("checkable").toBool()) {
        words.append(oneOf(button->property("checked").toBool(), "checked", "unchecked"));
    }
    return words;
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

QRect sureTouchArea(const QWidget *button)
{
    QRect area = touchArea(button);
    if (qobject_cast<const QAbstractButton *>(button) == nullptr) {
        const int high = qMin(area.height(), button->sizeHint().height());
        area = QRect(0, (area.height() - high) / 2, area.width(), high);
    }
    return area;
}

QString describe(const QWidget *widget)
{
    const QString ownId = id(widget);
    const QString name = ownId.isEmpty() ? widget->objectName() : ownId;
    const QString type = QString::fromLatin1(widget->metaObject()->className());
    return name.isEmpty() ? type : QStringLiteral("%1 \"%2\"").arg(type, name);
}

} // namespace buttonface

} // namespace simulator
