#pragma once

#include "plaintwin.h"

#include <QWidget>

#include <memory>
#include <vector>

class FactoryDebugView;

/// A page made of plain widgets: those that the menu's view has in place of the menu.
using PlainPage = QVector<PlainTwin>;

/// Opens the page and leaves it again.
PlainPage plainPage(FactoryDebugView &view, const QString &id);

/// The status bar and the menu made of plain widgets on a screen of their own, and pages in the
/// menu's place.
class PlainScreen
{
public:
    /// Of a view that shows the menu.
    explicit PlainScreen(const FactoryDebugView &view);

    /// Painted when they return.
    void open(const PlainPage &page);
    void leavePage();

private:
    void showMenu(bool shown);

    QWidget m_screen;
    QWidgetList m_menu;
    std::vector<std::unique_ptr<QWidget>> m_page;
};
