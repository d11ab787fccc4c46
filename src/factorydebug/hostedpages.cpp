#include "hostedpages.h"

#include "factorydebugview.h"
#include "statusbar.h"

#include "setup/csetupalstest.h"
#include "setup/csetupkeylight.h"
#include "setup/setuppanel.h"
#include "system/cdevsinfopage.h"
#include "system/csysctrlpage.h"
#include "system/vendordataview.h"
#include "usbtest/ncmtestview.h"
#include "usbtest/usbeyetestview.h"
#include "usbtest/usbtestview.h"

namespace
{

struct Page
{
    const char *title;
    QObject *(*make)(FactoryDebugView *view, StatusBar *statusBar);
};

template <typename View> QObject *makeView(FactoryDebugView *view, StatusBar *)
{
    return new View(view);
}

QObject *makeUsbTestView(FactoryDebugView *view, StatusBar *statusBar)
{
    auto *page = new USBTestView(view);
    QObject::connect(page, &USBTestView::setTitle, statusBar, &StatusBar::interSecondary);
    return page;
}

/// Below the status bar, but for the last two rows.
template <typename Widget> Widget *makeWidget(FactoryDebugView *view, StatusBar *)
{
    return new Widget(QRect(QPoint(0, 66), QPoint(799, 477)), view);
}

template <typename Widget> QObject *makePage(FactoryDebugView *view, StatusBar *statusBar)
{
    return makeWidget<Widget>(view, statusBar);
}

QObject *makeSysCtrlPage(FactoryDebugView *view, StatusBar *statusBar)
{
    auto *page = makeWidget<CSysCtrlPage>(view, statusBar);
    QObject::connect(page, &CSysCtrlPage::sigShowMaskBg, view, &FactoryDebugView::showMaskBgSlot);
    return page;
}

/// In the order of the slots.
constexpr Page pages[] = {
    {QT_TRANSLATE_NOOP("FactoryDebugView", "USB Test"), makeUsbTestView},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "USB Eye Test"), makeView<USBEyeTestView>},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "NCM Test"), makeView<NCMTestView>},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "KeyColor Set"), makePage<CSetupKeyLight>},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "VendorData Set"), makeView<VendorDataView>},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "ALS Test"), makePage<CSetupALSTest>},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Product Version"), makePage<CDevsInfoPage>},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "System Control"), makeSysCtrlPage},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Panel Config"), makePage<CSetupPanelForm>},
};

static_assert(sizeof pages / sizeof *pages == hostedpages::SlotCount, "a slot has no page");

} // namespace

const char *hostedpages::title(Slot slot)
{
    return pages[slot].title;
}

QObject *hostedpages::make(Slot slot, FactoryDebugView *view, StatusBar *statusBar)
{
    return pages[slot].make(view, statusBar);
}
