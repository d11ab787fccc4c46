#pragma once

#include "kvwidget/popupview.h"

#include "kvwidget/baseview.h"
#include "kvwidget/kviconbutton.h"

/// A pop-up with an id, and the order in which its signals came.
class Popup : public PopupView
{
public:
    explicit Popup(QWidget *parent = nullptr)
        : PopupView(parent)
    {
        setPopupViewId("userdata");
        const auto hear = [this](const QString &what, const QString &id) {
            heard << what + " " + id;
            visibleWhenHeard = isVisible();
        };
        connect(this, &PopupView::ok, this, [=](const QString &id) { hear("ok", id); });
        connect(this, &PopupView::cancel, this, [=](const QString &id) { hear("cancel", id); });
        connect(this, &PopupView::timeout, this, [=](const QString &id) { hear("timeout", id); });
    }

    KvIconButton *button(const QString &name) const { return findChild<KvIconButton *>(name); }

    /// Where the middle of the button lies on the screen.
    QPoint middleOf(const QString &name) const
    {
        return button(name)->mapTo(window(), button(name)->rect().center());
    }

    QStringList heard;
    bool visibleWhenHeard = true;
};

const QLatin1String okName("popupview_ok");
const QLatin1String cancelName("popupview_cancel");

/// A page that fills the screen.
class FullPage : public BaseView
{
public:
    explicit FullPage(QWidget *screen)
        : BaseView("page", screen)
    {
        setGeometry(0, 0, 800, 480);
    }
};

/// A button that fills the screen and counts its clicks: the touches that reach it.
class ButtonBelow : public KvIconButton
{
public:
    explicit ButtonBelow(QWidget *screen)
        : KvIconButton(screen)
    {
        setGeometry(0, 0, 800, 480);
        connect(this, &KvIconButton::btnClicked, this, [this] { ++clicks; });
    }

    int clicks = 0;
};
