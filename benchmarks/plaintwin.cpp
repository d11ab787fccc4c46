#include "plaintwin.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStringListModel>
#include <QTextBrowser>
#include <QVariant>

namespace
{

QVariant firstOf(const QWidget &widget, std::initializer_list<const char *> properties)
{
    for (const char *property : properties) {
        const QVariant value = widget.property(property);
        if (value.isValid()) {
            return value;
        }
    }
    return QVariant();
}

/// With the picture as it is: a button of Qt's own draws its icon and its text side by side.
QWidget *makeButton(const QPixmap &picture, const QString &text, QWidget *parent)
{
    auto *button = new QPushButton(text, parent);
    button->setFlat(true);
    button->setIcon(QIcon(picture));
    button->setIconSize(picture.size());
    return button;
}

QWidget *makeLabel(const QPixmap &picture, const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    if (!picture.isNull()) {
        label->setPixmap(picture);
        label->setScaledContents(true);
    }
    return label;
}

QWidget *makeList(int rows, const QString &barStyle, QWidget *parent)
{
    auto *list = new QListView(parent);
    list->verticalScrollBar()->setStyleSheet(barStyle);
    QStringList texts;
    for (int row = 0; row < rows; ++row) {
        texts.append(QStringLiteral("Row %1").arg(row));
    }
    list->setModel(new QStringListModel(texts, list));
    return list;
}

QWidget *makeText(const QString &text, QWidget *parent)
{
    auto *browser = new QTextBrowser(parent);
    browser->setPlainText(text);
    return browser;
}

/// What Qt makes a view or a text of.
bool comesWithTheOther(const QWidget &widget)
{
    return widget.objectName().startsWith(QLatin1String("qt_"));
}

} // namespace

PlainTwin::PlainTwin(const QWidget &widget)
    : m_kind(kindOf(widget))
    , m_place(widget.geometry())
    , m_font(widget.font())
    , m_text(textOf(widget))
    , m_style(widget.styleSheet())
    , m_picture(pictureOf(widget))
{
    if (m_kind == Kind::List) {
        const auto *list = qobject_cast<const QListView *>(&widget);
        m_rows = list->model()->rowCount();
        m_barStyle = list->verticalScrollBar()->styleSheet();
    }
    for (QObject *child : widget.children()) {
        const auto *each = qobject_cast<const QWidget *>(child);
        if (each != nullptr && !comesWithTheOther(*each)
            && (each->isVisibleTo(&widget) || kindOf(*each) == Kind::Bar)) {
            m_children.append(PlainTwin(*each));
        }
    }
}

QWidget *PlainTwin::make(QWidget *parent) const
{
    QWidget *widget = makeAlone(parent);
    widget->setGeometry(m_place);
    widget->setFont(m_font);
    if (!m_style.isEmpty()) {
        widget->setStyleSheet(m_style);
    }
    for (const PlainTwin &child : m_children) {
        child.make(widget);
    }
    return widget;
}

QWidget *PlainTwin::makeAlone(QWidget *parent) const
{
    switch (m_kind) {
    case Kind::Label:
        return makeLabel(m_picture, m_text, parent);
    case Kind::Button:
        return makeButton(m_picture, m_text, parent);
    case Kind::Radio:
        return new QRadioButton(m_text, parent);
    case Kind::Check:
        return new QCheckBox(m_text, parent);
    case Kind::Group:
        return new QGroupBox(m_text, parent);
    case Kind::List:
        return makeList(m_rows, m_barStyle, parent);
    case Kind::Bar:
        return new QScrollBar(Qt::Vertical, parent);
    case Kind::Text:
        return makeText(m_text, parent);
    case Kind::Widget:
        break;
    }
    return new QWidget(parent);
}

PlainTwin::Kind PlainTwin::kindOf(const QWidget &widget)
{
    if (qobject_cast<const QRadioButton *>(&widget)) {
        return Kind::Radio;
    }
    if (qobject_cast<const QCheckBox *>(&widget)) {
        return Kind::Check;
    }
    if (qobject_cast<const QGroupBox *>(&widget)) {
        return Kind::Group;
    }
    if (qobject_cast<const QListView *>(&widget)) {
        return Kind::List;
    }
    if (qobject_cast<const QScrollBar *>(&widget)) {
        return Kind::Bar;
    }
    if (qobject_cast<const QTextBrowser *>(&widget)) {
        return Kind::Text;
    }
    if (firstOf(widget, {"buttonID", "buttonId"}).isValid()) {
        return Kind::Button;
    }
    const bool isLabel = qobject_cast<const QLabel *>(&widget) != nullptr;
    return isLabel || !pictureOf(widget).isNull() ? Kind::Label : Kind::Widget;
}

QPixmap PlainTwin::pictureOf(const QWidget &widget)
{
    return firstOf(widget, {"normalImage", "normalPixmap", "offImage", "pixmap"}).value<QPixmap>();
}

QString PlainTwin::textOf(const QWidget &widget)
{
    return firstOf(widget, {"text", "displayText", "displayString", "title", "plainText"})
        .toString();
}
