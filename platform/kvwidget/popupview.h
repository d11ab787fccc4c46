#pragma once

#include "kvwidget.h"

#include <QScopedPointer>
#include <QString>

class PopupBox;
class QTimer;

/// A box with a text and up to two buttons in the middle of its parent: 676 x 280 pixels, or 676 x
/// 164 without buttons. It hides itself when a button is tapped or its time is over. The widget is
/// the box and nothing around it, so touches beside it reach what lies there. A BaseView that
/// carries the box takes them, and to show that it is dimmed, with all that is seen through it.
class KV_API PopupView : public KvWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(PopupView)
    Q_ENUMS(ButtonType ButtonPosition)
    Q_PROPERTY(QString popupViewId MEMBER m_id WRITE setPopupViewId)
    Q_PROPERTY(QString text READ text WRITE setText)

public:
    enum ButtonType { OkCancel = 0, OkOnly = 1, CancelOnly = 2, NoButton = 3 };
    enum ButtonPosition { ButtonsUnderText = 0, ButtonsAtBottom = 1 };

    explicit PopupView(QWidget *parent = nullptr);
    ~PopupView() override;

    /// The id that the signals carry.
    void setPopupViewId(const QString &id);

    /// OkCancel at first.
    void setButtonType(ButtonType type);
    /// ButtonsAtBottom at first.
    void setButtonPosition(ButtonPosition position);

    /// How long the box stays, in milliseconds; with 0 or less it stays. It counts from the latest
    /// show(), also when the box was visible already.
    void setShowTimeout(int ms);

    void setOkText(const QString &text);
    void setCancelText(const QString &text);

    /// Plain text. It wraps, and it is drawn smaller where it does not fit; rather than that all of
    /// it becomes hard to read, a word that is too wide is broken.
    void setText(const QString &text);
    QString text() const;

    /// \a buttonName is "popupview_ok" or "popupview_cancel"; other names mean nothing.
    void setButtonDisabled(QString buttonName, bool disabled);

    void setVisible(bool visible) override;
    QSize sizeHint() const override;

signals:
    /// The button was tapped; the box is hidden already, and whoever hears of it may delete it.
    void ok(QString id);
    /// As ok(). After it, and after timeout(), a BaseView that carried nothing but this box is
    /// hidden too, so that it does not lie over a page that has to take touches.
    void cancel(QString id);
    /// The box went because its time was over.
    void timeout(QString id);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    typedef void (PopupView::*Signal)(QString);

    void goAway(Signal signal);
    void goAwayWithPage(Signal signal);
    void startTimeout();
    void dimPage();

    QString m_id;
    QScopedPointer<PopupBox> m_box;
    int m_showTimeout = 0;
    QTimer *m_timer;
};
