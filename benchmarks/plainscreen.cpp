#include "plainscreen.h"

#include "factorydebug/factorydebugview.h"
#include "factorydebug/statusbar.h"

#include <QCoreApplication>

namespace
{

/// But for the status bar.
QWidgetList shownOn(const QWidget &view)
{
    QWidgetList shown;
    const auto children = view.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (auto *child : children) {
        if (child->isVisible() && qobject_cast<StatusBar *>(child) == nullptr) {
            shown.append(child);
        }
    }
    return shown;
}

} // namespace

PlainPage plainPage(FactoryDebugView &view, const QString &id)
{
    view.buttonClicked(id);
    PlainPage page;
    const QWidgetList shown = shownOn(view);
    for (const QWidget *widget : shown) {
        page.append(PlainTwin(*widget));
    }
    view.buttonClicked(QStringLiteral("return"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return page;
}

PlainScreen::PlainScreen(const FactoryDebugView &view)
{
    m_screen.setGeometry(0, 0, 800, 480);
    PlainTwin(*view.findChild<StatusBar *>()).make(&m_screen);
    const QWidgetList menu = shownOn(view);
    for (const QWidget *button : menu) {
        m_menu.append(PlainTwin(*button).make(&m_screen));
    }
    m_screen.show();
}

void PlainScreen::open(const PlainPage &page)
{
    showMenu(false);
    for (const PlainTwin &twin : page) {
        m_page.emplace_back(twin.make(&m_screen));
        m_page.back()->show();
    }
    m_screen.repaint();
}

void PlainScreen::leavePage()
{
    showMenu(true);
    m_page.clear();
    m_screen.repaint();
}

void PlainScreen::showMenu(bool shown)
{
    for (QWidget *button : qAsConst(m_menu)) {
        button->setVisible(shown);
    }
}
