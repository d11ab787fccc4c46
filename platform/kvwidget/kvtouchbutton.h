#pragma once

#include "kvwidget.h"

/// What all buttons have alike: it follows the finger that went down on the button until the finger
/// is lifted, and it gives a button with an empty rectangle its image's size. A finger that is
/// lifted elsewhere does nothing; hiding or disabling a button forgets the finger.
class KV_API KvTouchButton : public KvWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(KvTouchButton)

public:
    explicit KvTouchButton(QWidget *parent = nullptr);

    /// The image's size in pixels.
    QSize sizeHint() const override;

protected:
    /// Size in pixels of the image that gives the button its size; empty while there is none.
    virtual QSize faceSize() const = 0;
    /// Whether a finger may press the button.
    virtual bool takesTouches() const;
    /// Where it may do so: the whole button, unless a subclass says otherwise.
    virtual QRect touchArea() const;
    /// A finger that went down on the button has been lifted over it. Nothing is done with the
    /// button after this call, so whoever hears of the lift may delete it.
    virtual void fingerLifted() = 0;

    /// True while the finger that went down on the button is down and over it.
    bool isUnderFinger() const;
    /// Forgets the finger; lifting it will mean nothing.
    void cancelPress();
    /// To be called when faceSize() may have changed.
    void faceSizeChanged();

    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void trackFinger(bool pressed, bool inside);
    void fillEmptyRectangle();

    bool m_pressed = false;
    bool m_fingerInside = false;
};
