#include "topleveladopter.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace simulator
{

TopLevelAdopter::TopLevelAdopter(QWidget *own, QWidget *layer)
    : m_own(own)
    , m_layer(layer)
{
    qApp->installEventFilter(this);
}

void TopLevelAdopter::deletePages()
{
    const QList<QPointer<QWidget>> pages = m_pages;
    m_pages.clear();
    for (const QPointer<QWidget> &page : pages) {
        delete page;
    }
}

bool TopLevelAdopter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        auto *widget = static_cast<QWidget *>(watched);
        if (isPage(widget)) {
            // Sent before the window system hears of the window, which it now never does. The page
            // is in the middle of its show(), so the rest has to wait.
            widget->setAttribute(Qt::WA_DontShowOnScreen);
            remember(widget);
            const QPointer<QWidget> page(widget);
            QMetaObject::invokeMethod(
                this, [this, page] { adopt(page); }, Qt::QueuedConnection);
        }
    }
    return QObject::eventFilter(watched, event);
}

bool TopLevelAdopter::isPage(const QWidget *widget) const
{
    const Qt::WindowType type = widget->windowType();
    return widget->isWindow() && widget->parentWidget() == nullptr && widget != m_own
        && type != Qt::Popup && type != Qt::ToolTip && type != Qt::Desktop;
}

void TopLevelAdopter::remember(QWidget *page)
{
    m_pages.removeAll(QPointer<QWidget>());
    if (!m_pages.contains(page)) {
        m_pages.append(page);
    }
}

void TopLevelAdopter::adopt(QWidget *page)
{
    if (page == nullptr || !page->isWindow() || !page->isVisible()) {
        return;
    }
    const QRect geometry = page->geometry();
    page->hide();
    // It was made for a window on the desktop and is of no use any more.
    page->windowHandle()->destroy();
    page->setParent(m_layer);
    page->setAttribute(Qt::WA_DontShowOnScreen, false);
    page->setGeometry(geometry);
    page->show();
    page->raise();
}

} // namespace simulator
