#pragma once

#include "factorydebug/factorydebugview.h"

#include "kvwidget/kviconbutton.h"
#include "support/testunit.h"

#include <QApplication>
#include <QPointer>

#include <algorithm>
#include <iterator>

/// The menu as the technician sees it: index, label, id, position.
struct MenuEntry
{
    const char *label;
    const char *id;
    QPoint position;
};

const MenuEntry menu[] = {
    {"USB Test", "usbtest", {65, 90}},
    {"USB Eye", "usbeye", {295, 90}},
    {"NCM Test", "ncmtest", {525, 90}},
    {"KeyColor", "keycolor", {65, 170}},
    {"Vendordata", "vendordata", {295, 170}},
    {"GPS Update", "gps", {525, 170}},
    {"ALS Test", "als", {65, 250}},
    {"Product", "pdtVer", {295, 250}},
    {"SysCtrl", "sysCtrl", {525, 250}},
    {"Panel Config", "idPanel", {65, 330}},
    {"Copy Btsnoop", "idCopyBtsnoop", {295, 330}},
    {"Capture", "idCapture", {525, 330}},
    {"Start USB Test", "startUSBTest", {65, 410}},
};

inline QPoint menuPoint(const char *id)
{
    for (const MenuEntry &entry : menu) {
        if (qstrcmp(entry.id, id) == 0) {
            return entry.position + QPoint(105, 30);
        }
    }
    qFatal("no menu button %s", id);
}

/// Pages put buttons of their own on the view; those of the menu have the menu's ids.
inline QList<KvIconButton *> menuButtons(const FactoryDebugView &view)
{
    QList<KvIconButton *> buttons;
    const auto all = view.findChildren<KvIconButton *>(QString(), Qt::FindDirectChildrenOnly);
    std::copy_if(all.cbegin(), all.cend(), std::back_inserter(buttons), [](KvIconButton *button) {
        return std::any_of(std::begin(menu), std::end(menu), [button](const MenuEntry &entry) {
            return button->buttonID() == QLatin1String(entry.id);
        });
    });
    return buttons;
}

inline QWidgetList gpsPages()
{
    QWidgetList pages;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget *widget : all) {
        if (widget->inherits("CGpsComPage")) {
            pages.append(widget);
        }
    }
    return pages;
}

/// A visible view on the unit's screen.
struct ViewOnScreen
{
    explicit ViewOnScreen(double timeFactor = 1.0)
        : unit(timeFactor)
        , view(new FactoryDebugView(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY)))
    {
        view->show();
    }

    // They speak with the unit to their end.
    ~ViewOnScreen() { qDeleteAll(gpsPages()); }

    void tap(const char *menuId) { unit.tap(menuPoint(menuId)); }

    TestUnit unit;
    QPointer<FactoryDebugView> view;
};
