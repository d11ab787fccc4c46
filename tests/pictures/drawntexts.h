#pragma once

#include <QList>
#include <QRegion>
#include <QString>

class QWidget;

/// A piece of text as a widget draws it: a line, or a part of one. Places are in pixels of what is
/// drawn.
struct DrawnText
{
    QString text;
    int pixelSize; ///< Of the font that it is drawn with, which may be smaller than the widget's
                   ///< own.
    QRect ink;     ///< What the letters cover.
    QRegion seen;  ///< Where they are to be seen; whatever lies outside is cut off.
};

/// The texts of a widget and of what lies in it. Nothing is assumed of how widgets draw: what they
/// do is listened to.
QList<DrawnText> drawnTexts(QWidget &widget);
