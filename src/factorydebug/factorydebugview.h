#pragma once

#include "hostedpages.h"

#include "kvwidget/kvwidget.h"

#include <QList>
#include <QPointer>

class KvBackgroundImage;
class KvIconButton;
class PopupView;
class StatusBar;

/// The whole factory-debug screen, 800 x 480: the status bar, the menu of buttons below it, and in
/// the menu's place at most one page at a time, made when it is opened and deleted when it is left.
class FactoryDebugView : public KvWidget
{
    Q_OBJECT

public:
    explicit FactoryDebugView(QWidget *parent);
    ~FactoryDebugView() override;

    void initFactoryWidget();

    /// Brings the menu back and deletes the page.
    void showButtons();
    void hideButtons();
    /// Hides the menu and deletes the page, to make room for another.
    void hideSubViewPage()
    {
        hideButtons();
        hideAllSubPage();
    }
    void hideAllSubPage();
    /// Shows for two seconds whether screen capture is on.
    void captureStatusShow(bool on);

    void showUsbTestView() { openPage("showUsbTestView", hostedpages::UsbTest); }
    void showUsbEyeTestView() { openPage("showUsbEyeTestView", hostedpages::UsbEye); }
    void showNCMTestView() { openPage("showNCMTestView", hostedpages::Ncm); }
    void showKeyColorView() { openPage("showKeyColorView", hostedpages::KeyColor); }
    void showVendorDataView() { openPage("showVendorDataView", hostedpages::VendorData); }
    /// Opens a page of its own over everything, a new one on every call.
    void showGpsView();
    void showALSTestView() { openPage("showALSTestView", hostedpages::Als); }
    void showProductView() { openPage("showProductView", hostedpages::Product); }
    void showSysCtrlView() { openPage("showSysCtrlView", hostedpages::SysCtrl); }
    void showPanelView() { openPage("showPanelView", hostedpages::Panel); }

    void hideUsbTestView() { closePage("hideUsbTestView", hostedpages::UsbTest); }
    void hideUsbEyeTestView() { closePage("hideUsbEyeTestView", hostedpages::UsbEye); }
    void hideNCMTestView() { closePage("hideNCMTestView", hostedpages::Ncm); }
    void hideKeyColorView() { closePage("hideKeyColorView", hostedpages::KeyColor); }
    void hideVendorDataView() { closePage("hideVendorDataView", hostedpages::VendorData); }
    /// Does nothing: the GPS page closes itself.
    void hideGpsView();
    void hideALSTestView() { closePage("hideALSTestView", hostedpages::Als); }
    void hideProductView() { closePage("hideProductView", hostedpages::Product); }
    void hideSysCtrlView() { closePage("hideSysCtrlView", hostedpages::SysCtrl); }
    void hidePanelView() { closePage("hidePanelView", hostedpages::Panel); }

public slots:
    /// Does what the button with this id stands for; an unknown id does nothing.
    void buttonClicked(QString id);
    /// Dims the whole view for good: the unit is about to restart.
    void showMaskBgSlot();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(FactoryDebugView)

    /// A button of the menu, and what it stands for.
    struct MenuItem
    {
        const char *label; ///< not yet translated
        const char *id;
        void (FactoryDebugView::*action)();
        void (FactoryDebugView::*closePage)(); ///< of the page that it opens; null without a page
        bool replacesPage;                     ///< the page takes the menu's place
    };

    static const MenuItem menu[];

    void openPage(const char *operation, hostedpages::Slot slot);
    void closePage(const char *operation, hostedpages::Slot slot);
    bool isPageOpen() const;

    void leavePage();
    void closeActivity();
    void copyBtsnoop();
    void flipCapture();
    void startUsbTest();

    StatusBar *m_statusBar;
    QList<KvIconButton *> m_buttons;
    // Null where none is open; a page may delete itself.
    QPointer<QObject> m_pages[hostedpages::SlotCount];
    KvBackgroundImage *m_shade;
    PopupView *m_capturePopup;
};
