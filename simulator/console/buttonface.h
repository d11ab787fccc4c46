#pragma once

#include <QRect>
#include <QStringList>

class QWidget;

namespace simulator
{

/// What widgets tell of themselves to who looks at the screen, by their properties: what they say,
/// and whether and how they can be pressed.
namespace buttonface
{

bool isButton(const QWidget *widget);

/// The button that a widget is, or that it is a part of; null when there is none.
const QWidget *buttonOf(const QWidget *widget);

/// What the button is called: its id, or, without one, its object name or else its text.
QString name(const QWidget *button);

/// Whether that is the button's id, or, for one without an id, its object name or text.
bool isCalled(const QWidget *button, const QString &name);

/// The texts that are written on a widget; some may be empty.
QStringList texts(const QWidget *widget);

/// Whether a touch would work it.
bool isUsable(const QWidget *button);

/// "enabled" or "disabled", and as far as the button tells: "pressed", "on" or "off", "checked" or
/// "unchecked".
QStringList state(const QWidget *button);

/// The part of a button that takes touches, in its own pixels.
QRect touchArea(const QWidget *button);

/// The part of it that is as high as its image: some buttons take touches only there.
QRect sureTouchArea(const QWidget *button);

/// The widget's class with its name, for messages.
QString describe(const QWidget *widget);

} // namespace buttonface

} // namespace simulator
