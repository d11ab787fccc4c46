#pragma once

#include "kvwidget/kvwidget.h"

#include <QList>
#include <QPointer>

class CDevsInfoPage;
class CSetupALSTest;
class CSetupKeyLight;
class CSetupPanelForm;
class CSysCtrlPage;
class KvBackgroundImage;
class KvIconButton;
class NCMTestView;
class PopupView;
class StatusBar;
class USBEyeTestView;
class USBTestView;
class VendorDataView;

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
    void hideSubViewPage();
    void hideAllSubPage();
    /// Shows for two seconds whether screen capture is on.
    void captureStatusShow(bool on);

    void showUsbTestView();
    void hideUsbTestView();
    void showUsbEyeTestView();
    void hideUsbEyeTestView();
    void showNCMTestView();
    void hideNCMTestView();
    void showKeyColorView();
    void hideKeyColorView();
    void showVendorDataView();
    void hideVendorDataView();
    /// Opens a page of its own over everything, a new one on every call.
    void showGpsView();
    /// Does nothing: the GPS page closes itself.
    void hideGpsView();
    void showALSTestView();
    void hideALSTestView();
    void showProductView();
    void hideProductView();
    void showSysCtrlView();
    void hideSysCtrlView();
    void showPanelView();
    void hidePanelView();

public slots:
    /// Does what the button with this id stands for; an unknown id does nothing.
    void buttonClicked(QString id);
    /// Dims the whole view for good: the unit is about to restart.
    void showMaskBgSlot();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(FactoryDebugView)

    struct Action
    {
        const char *id;
        void (FactoryDebugView::*run)();
        bool replacesPage;
    };

    static const Action actions[];

    KvIconButton *createMenuButton(const QRect &rect, const char *label, const char *id);
    bool isPageOpen() const;
    bool isMenuHidden() const;

    void leavePage();
    void closeActivity();
    void copyBtsnoop();
    void flipCapture();
    void startUsbTest();

    StatusBar *m_statusBar;
    QList<KvIconButton *> m_buttons;
    // A page may delete itself.
    QPointer<USBTestView> m_usbTestView;
    QPointer<USBEyeTestView> m_usbEyeTestView;
    QPointer<NCMTestView> m_ncmTestView;
    QPointer<CSetupKeyLight> m_keyColorView;
    QPointer<VendorDataView> m_vendorDataView;
    QPointer<CSetupALSTest> m_alsTestView;
    QPointer<CDevsInfoPage> m_productView;
    QPointer<CSysCtrlPage> m_sysCtrlView;
    QPointer<CSetupPanelForm> m_panelView;
    KvBackgroundImage *m_shade;
    PopupView *m_capturePopup;
};
