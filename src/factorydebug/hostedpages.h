#pragma once

class FactoryDebugView;
class QObject;
class StatusBar;

/// The pages that the main view hosts, one at a time.
namespace hostedpages
{

/// A place for each of them.
enum Slot {
    UsbTest,
    UsbEye,
    Ncm,
    KeyColor,
    VendorData,
    Als,
    Product,
    SysCtrl,
    Panel,
    SlotCount,
};

/// The title in the status bar, not yet translated, in the main view's context.
const char *title(Slot slot);

/// Makes the page on \a view, which owns it. One that is a widget is not shown yet; the others have
/// shown their widgets on the view.
QObject *make(Slot slot, FactoryDebugView *view, StatusBar *statusBar);

} // namespace hostedpages
