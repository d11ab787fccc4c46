#pragma once

class KvIconButton;
class QRect;
class QString;
class QWidget;

/// A button of the menu, 210 x 60; \a label is translated.
KvIconButton *createMenuButton(const QRect &rect, const QString &label, const QString &id,
                               QWidget *parent);
