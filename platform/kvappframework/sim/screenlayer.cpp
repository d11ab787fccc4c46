#include "screenlayer.h"

#include <QChildEvent>

namespace kvappframework
{

ScreenLayer::ScreenLayer(QWidget *screen)
    : QWidget(screen)
{
    setGeometry(screen->rect());
    updateReach();
    show();
}

void ScreenLayer::childEvent(QChildEvent *event)
{
    if (event->child()->isWidgetType()) {
        if (event->added()) {
            event->child()->installEventFilter(this);
        }
        updateReach();
    }
    QWidget::childEvent(event);
}

bool ScreenLayer::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
    case QEvent::Move:
    case QEvent::Resize:
        updateReach();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void ScreenLayer::updateReach()
{
    QRegion reach;
    const QObjectList all = children();
    for (QObject *child : all) {
        const auto *widget = qobject_cast<QWidget *>(child);
        if (widget != nullptr && !widget->isHidden()) {
            reach += widget->geometry();
        }
    }
    if (reach.isEmpty()) {
        // An empty mask would mean none at all.
        reach = QRegion(-1, -1, 1, 1);
    }
    setMask(reach);
}

} // namespace kvappframework
