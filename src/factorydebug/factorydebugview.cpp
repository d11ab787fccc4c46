#include "factorydebugview.h"

#include "btsnoopcopy.h"
#include "statusbar.h"
#include "trace.h"

#include "gps/gpscomage.h"
#include "setup/csetupalstest.h"
#include "setup/csetupkeylight.h"
#include "setup/setuppanel.h"
#include "system/cdevsinfopage.h"
#include "system/csysctrlpage.h"
#include "system/vendordataview.h"
#include "usbtest/ncmtestview.h"
#include "usbtest/usbeyetestview.h"
#include "usbtest/usbteststate.h"
#include "usbtest/usbtestview.h"

#include "kvappframework/activitymanager.h"
#include "kvappframework/modulemanager.h"
#include "kvappframework/uimanager.h"
#include "kvwidget/kvbackgroundimage.h"
#include "kvwidget/kviconbutton.h"
#include "kvwidget/popupview.h"
#include "service/comsysconfig.h"
#include "service/filedeviceparser.h"
#include "service/mediaplaymodule.h"

#include <QPainter>

using namespace kvappframework;

namespace
{

struct MenuItem
{
    const char *label;
    const char *id;
};

const MenuItem menuItems[] = {
    {QT_TRANSLATE_NOOP("FactoryDebugView", "USB Test"), "usbtest"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "USB Eye"), "usbeye"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "NCM Test"), "ncmtest"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "KeyColor"), "keycolor"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Vendordata"), "vendordata"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "GPS Update"), "gps"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "ALS Test"), "als"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Product"), "pdtVer"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "SysCtrl"), "sysCtrl"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Panel Config"), "idPanel"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Copy Btsnoop"), "idCopyBtsnoop"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Capture"), "idCapture"},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Start USB Test"), "startUSBTest"},
};

const int menuColumns = 3;
const int captureNoticeMs = 2000;

QRect viewRect()
{
    return QRect(QPoint(0, 0), QPoint(799, 479));
}

/// Below the status bar, but for the last two rows.
QRect pageRect()
{
    return QRect(QPoint(0, 66), QPoint(799, 477));
}

QStringList mountedDevices()
{
    return FileDeviceParser::getInstance()->getMountDeviceByType(FileDeviceParser::MediaType1);
}

void setMediaplayUsbTesting()
{
    const auto mediaplay = qSharedPointerDynamicCast<MediaplayModulePlugin>(
        ModuleManager::self()->getModule(QStringLiteral("mediaplay")));
    if (!mediaplay.isNull()) {
        mediaplay->getMediaplayModule()->setUSBTesting(true);
    }
}

template <typename Page> void deletePage(const QPointer<Page> &page)
{
    delete page.data();
}

} // namespace

const FactoryDebugView::Action FactoryDebugView::actions[] = {
    {"return", &FactoryDebugView::leavePage, false},
    {"exit", &FactoryDebugView::closeActivity, false},
    {"usbtest", &FactoryDebugView::showUsbTestView, true},
    {"usbeye", &FactoryDebugView::showUsbEyeTestView, true},
    {"ncmtest", &FactoryDebugView::showNCMTestView, true},
    {"keycolor", &FactoryDebugView::showKeyColorView, true},
    {"vendordata", &FactoryDebugView::showVendorDataView, true},
    {"gps", &FactoryDebugView::showGpsView, false},
    {"als", &FactoryDebugView::showALSTestView, true},
    {"pdtVer", &FactoryDebugView::showProductView, true},
    {"sysCtrl", &FactoryDebugView::showSysCtrlView, true},
    {"idPanel", &FactoryDebugView::showPanelView, true},
    {"idCopyBtsnoop", &FactoryDebugView::copyBtsnoop, false},
    {"idCapture", &FactoryDebugView::flipCapture, false},
    {"startUSBTest", &FactoryDebugView::startUsbTest, false},
};

FactoryDebugView::FactoryDebugView(QWidget *parent)
    : KvWidget(parent)
    , m_statusBar(nullptr)
    , m_shade(nullptr)
    , m_capturePopup(nullptr)
{
    m_statusBar = new StatusBar(this);
    connect(m_statusBar, &StatusBar::buttonClicked, this, &FactoryDebugView::buttonClicked);
    setGeometry(viewRect());
    initFactoryWidget();
}

FactoryDebugView::~FactoryDebugView()
{
    FACTORY_TRACE << "~FactoryDebugView";
    delete m_shade;
}

void FactoryDebugView::initFactoryWidget()
{
    // The bottom right corner stays the first button's; a button whose rectangle comes out empty
    // takes the size of its image.
    QRect rect(QPoint(65, 90), QPoint(274, 149));
    int index = 0;
    for (const MenuItem &item : menuItems) {
        rect.setLeft(65 + 230 * (index % menuColumns));
        rect.setTop(90 + 80 * (index / menuColumns));
        m_buttons.append(createMenuButton(rect, item.label, item.id));
        ++index;
    }
}

KvIconButton *FactoryDebugView::createMenuButton(const QRect &rect, const char *label,
                                                 const char *id)
{
    const QColor textColor(240, 240, 240, 255);
    auto *button = new KvIconButton(this);
    button->setGeometry(rect);
    button->setNormalImage(QPixmap(QStringLiteral(":/images/btn210x60_n.png")));
    button->setOverImage(QPixmap(QStringLiteral(":/images/btn210x60_p.png")));
    button->setShowMode(KvIconButton::ShowImageText);
    button->setTextSize(28);
    button->setNormalTextColor(textColor);
    button->setPressTextColor(textColor);
    button->setDisplayText(tr(label));
    button->setButtonID(QString::fromLatin1(id));
    connect(button, &KvIconButton::btnClicked, this, &FactoryDebugView::buttonClicked);
    return button;
}

void FactoryDebugView::buttonClicked(QString id)
{
    FACTORY_TRACE << "id:" << id;
    for (const Action &action : actions) {
        if (id == QLatin1String(action.id)) {
            if (action.replacesPage) {
                hideSubViewPage();
            }
            // The action may be the end of this view.
            (this->*action.run)();
            return;
        }
    }
}

void FactoryDebugView::leavePage()
{
    if (m_usbTestView != nullptr && usbTestListType != UsbTestTopList) {
        m_usbTestView->statusBarButtonClicked(QStringLiteral("return"));
    } else if (isPageOpen() || isMenuHidden()) {
        // A page that has deleted itself leaves the menu hidden.
        showButtons();
    }
}

bool FactoryDebugView::isPageOpen() const
{
    return m_usbTestView != nullptr || m_usbEyeTestView != nullptr || m_ncmTestView != nullptr
        || m_keyColorView != nullptr || m_vendorDataView != nullptr || m_alsTestView != nullptr
        || m_productView != nullptr || m_sysCtrlView != nullptr || m_panelView != nullptr;
}

bool FactoryDebugView::isMenuHidden() const
{
    return m_buttons.first()->isHidden();
}

void FactoryDebugView::closeActivity()
{
    ActivityManager::self()->closeActivity(QStringLiteral("factorydebug"));
}

void FactoryDebugView::copyBtsnoop()
{
    const QStringList devices = mountedDevices();
    if (devices.isEmpty()) {
        return;
    }
    FACTORY_TRACE << "last device:" << devices.last();
    copyBtsnoopLogs(devices.last().toLocal8Bit());
}

void FactoryDebugView::flipCapture()
{
    ComSysConfig *config = ComSysConfig::getInstance();
    config->setCaptureStatus(!config->getCaptureStatus());
    captureStatusShow(config->getCaptureStatus());
}

void FactoryDebugView::startUsbTest()
{
    const QStringList devices = mountedDevices();
    FACTORY_TRACE << "deviceList: " << devices.count();
    if (devices.isEmpty()) {
        return;
    }
    FileDeviceParser::getInstance()->startParser(devices.last());
    closeActivity();
    // A framework may have deleted this view by now: nothing of it is used any more.
    setMediaplayUsbTesting();
    ActivityManager::self()->startActivity(QStringLiteral("usb"), 0);
}

void FactoryDebugView::captureStatusShow(bool on)
{
    if (m_capturePopup == nullptr) {
        m_capturePopup = new PopupView(UIManager::getUIHerarchy(UI_HERARCHY_POPUP));
        m_capturePopup->setButtonType(PopupView::NoButton);
    }
    m_capturePopup->setText(on ? tr("capture turned on") : tr("capture turned off"));
    m_capturePopup->setShowTimeout(captureNoticeMs);
    m_capturePopup->show();
}

void FactoryDebugView::showMaskBgSlot()
{
    if (m_shade == nullptr) {
        m_shade = new KvBackgroundImage(this);
        m_shade->setGeometry(geometry());
        m_shade->setPixmap(QPixmap(QStringLiteral(":/images/pop/shade.png")));
    }
    m_shade->raise();
    m_shade->show();
    // At once: the unit restarts before another event is handled.
    m_shade->repaint();
}

void FactoryDebugView::showButtons()
{
    for (KvIconButton *button : m_buttons) {
        button->show();
    }
    hideAllSubPage();
    m_statusBar->interPrimary();
}

void FactoryDebugView::hideButtons()
{
    for (KvIconButton *button : m_buttons) {
        button->hide();
    }
}

void FactoryDebugView::hideSubViewPage()
{
    hideButtons();
    hideAllSubPage();
}

void FactoryDebugView::hideAllSubPage()
{
    hideUsbTestView();
    hideUsbEyeTestView();
    hideNCMTestView();
    hideKeyColorView();
    hideVendorDataView();
    hideGpsView();
    hideALSTestView();
    hideProductView();
    hideSysCtrlView();
    hidePanelView();
}

void FactoryDebugView::showUsbTestView()
{
    FACTORY_TRACE << "showUsbTestView";
    if (m_usbTestView == nullptr) {
        m_usbTestView = new USBTestView(this);
        connect(m_usbTestView, &USBTestView::setTitle, m_statusBar, &StatusBar::interSecondary);
    }
    m_statusBar->interSecondary(tr("USB Test"));
}

void FactoryDebugView::hideUsbTestView()
{
    FACTORY_TRACE << "hideUsbTestView";
    deletePage(m_usbTestView);
}

void FactoryDebugView::showUsbEyeTestView()
{
    FACTORY_TRACE << "showUsbEyeTestView";
    if (m_usbEyeTestView == nullptr) {
        m_usbEyeTestView = new USBEyeTestView(this);
    }
    m_statusBar->interSecondary(tr("USB Eye Test"));
}

void FactoryDebugView::hideUsbEyeTestView()
{
    FACTORY_TRACE << "hideUsbEyeTestView";
    deletePage(m_usbEyeTestView);
}

void FactoryDebugView::showNCMTestView()
{
    FACTORY_TRACE << "showNCMTestView";
    if (m_ncmTestView == nullptr) {
        m_ncmTestView = new NCMTestView(this);
    }
    m_statusBar->interSecondary(tr("NCM Test"));
}

void FactoryDebugView::hideNCMTestView()
{
    FACTORY_TRACE << "hideNCMTestView";
    deletePage(m_ncmTestView);
}

void FactoryDebugView::showKeyColorView()
{
    FACTORY_TRACE << "showKeyColorView";
    if (m_keyColorView == nullptr) {
        m_keyColorView = new CSetupKeyLight(pageRect(), this);
    }
    m_keyColorView->show();
    m_statusBar->interSecondary(tr("KeyColor Set"));
}

void FactoryDebugView::hideKeyColorView()
{
    FACTORY_TRACE << "hideKeyColorView";
    deletePage(m_keyColorView);
}

void FactoryDebugView::showVendorDataView()
{
    FACTORY_TRACE << "showVendorDataView";
    if (m_vendorDataView == nullptr) {
        m_vendorDataView = new VendorDataView(this);
    }
    m_statusBar->interSecondary(tr("VendorData Set"));
}

void FactoryDebugView::hideVendorDataView()
{
    FACTORY_TRACE << "hideVendorDataView";
    deletePage(m_vendorDataView);
}

void FactoryDebugView::showGpsView()
{
    FACTORY_TRACE << "showGpsView";
    auto *page = new CGpsComPage(nullptr);
    page->show();
    page->raise();
}

void FactoryDebugView::hideGpsView()
{
    FACTORY_TRACE << "hideGpsView";
}

void FactoryDebugView::showALSTestView()
{
    FACTORY_TRACE << "showALSTestView";
    if (m_alsTestView == nullptr) {
        m_alsTestView = new CSetupALSTest(pageRect(), this);
    }
    m_alsTestView->show();
    m_statusBar->interSecondary(tr("ALS Test"));
}

void FactoryDebugView::hideALSTestView()
{
    FACTORY_TRACE << "hideALSTestView";
    deletePage(m_alsTestView);
}

void FactoryDebugView::showProductView()
{
    FACTORY_TRACE << "showProductView";
    if (m_productView == nullptr) {
        m_productView = new CDevsInfoPage(pageRect(), this);
    }
    m_productView->show();
    m_statusBar->interSecondary(tr("Product Version"));
}

void FactoryDebugView::hideProductView()
{
    FACTORY_TRACE << "hideProductView";
    deletePage(m_productView);
}

void FactoryDebugView::showSysCtrlView()
{
    FACTORY_TRACE << "showSysCtrlView";
    if (m_sysCtrlView == nullptr) {
        m_sysCtrlView = new CSysCtrlPage(pageRect(), this);
        connect(m_sysCtrlView, &CSysCtrlPage::sigShowMaskBg, this,
                &FactoryDebugView::showMaskBgSlot);
    }
    m_sysCtrlView->show();
    m_statusBar->interSecondary(tr("System Control"));
}

void FactoryDebugView::hideSysCtrlView()
{
    FACTORY_TRACE << "hideSysCtrlView";
    deletePage(m_sysCtrlView);
}

void FactoryDebugView::showPanelView()
{
    FACTORY_TRACE << "showPanelView";
    if (m_panelView == nullptr) {
        m_panelView = new CSetupPanelForm(pageRect(), this);
    }
    m_panelView->show();
    m_statusBar->interSecondary(tr("Panel Config"));
}

void FactoryDebugView::hidePanelView()
{
    FACTORY_TRACE << "hidePanelView";
    deletePage(m_panelView);
}

void FactoryDebugView::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(0, 0, width(), height(), QColor(11, 12, 13, 255));
}
