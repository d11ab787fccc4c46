#pragma once

#include "kvwidget/popupview.h"

#include <QPixmap>

class KvIconButton;

/// The face of a pop-up: its image, its text and its buttons, and where they lie.
class PopupBox
{
public:
    explicit PopupBox(PopupView &view);

    KvIconButton *ok() const { return m_ok; }
    KvIconButton *cancel() const { return m_cancel; }

    void setButtonType(PopupView::ButtonType type);
    void setButtonPosition(PopupView::ButtonPosition position);
    void setText(const QString &text);
    QString text() const { return m_text; }

    QSize size() const;
    /// Puts the box into the middle of its parent, and all that is in the box to its place.
    void layOut();
    void paint();

private:
    KvIconButton *createButton(const QString &name, const QString &text);
    bool hasOk() const;
    bool hasCancel() const;
    bool hasButtons() const;
    bool textIsOnButtons() const;
    void loadImage();
    void placeButtons();
    int lowestButtonTop() const;
    int buttonTop() const;
    QRect textArea(int buttonTop) const;
    QFont textFont() const;

    PopupView &m_view;
    QString m_text;
    QPixmap m_image;
    PopupView::ButtonType m_buttonType = PopupView::OkCancel;
    PopupView::ButtonPosition m_buttonPosition = PopupView::ButtonsAtBottom;
    KvIconButton *m_ok;
    KvIconButton *m_cancel;
};
