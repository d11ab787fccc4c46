#pragma once

#include <QFont>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QVector>

class QWidget;

/// What a page consists of, taken from a page that is shown: enough to make it again of Qt's own
/// widgets, with the same pictures, texts, places and style sheets. Without layouts, models and
/// whatever the page does.
class PlainTwin
{
public:
    /// Of \a widget and all that is shown below it.
    explicit PlainTwin(const QWidget &widget);

    /// Makes it; whoever calls shows and deletes it.
    QWidget *make(QWidget *parent) const;

private:
    enum class Kind { Widget, Label, Button, Radio, Check, Group, List, Bar, Text };

    static Kind kindOf(const QWidget &widget);
    static QPixmap pictureOf(const QWidget &widget);
    static QString textOf(const QWidget &widget);
    QWidget *makeAlone(QWidget *parent) const;

    Kind m_kind;
    QRect m_place;
    QFont m_font;
    QString m_text;
    QString m_style;
    QPixmap m_picture;
    int m_rows = 0;
    QString m_barStyle;
    QVector<PlainTwin> m_children;
};
