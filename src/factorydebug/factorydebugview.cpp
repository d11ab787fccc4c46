#include "factorydebugview.h"

#include "btsnoopcopy.h"
#include "menubutton.h"
#include "statusbar.h"
#include "usbmediatest.h"

#include "common/trace.h"
#include "gps/gpscomage.h"
#include "usbtest/usbteststate.h"
#include "usbtest/usbtestview.h"

#include "kvappframework/activitymanager.h"
#include "kvappframework/uimanager.h"
#include "kvwidget/kvbackgroundimage.h"
#include "kvwidget/kviconbutton.h"
#include "kvwidget/popupview.h"
#include "service/comsysconfig.h"

#include <QPainter>

#include <algorithm>
#include <iterator>

using namespace kvappframework;

namespace
{
using View = FactoryDebugView;

constexpr auto popupLayer = static_cast<UIHerarchy>(3);
constexpr auto withoutButtons = static_cast<PopupView::ButtonType>(3);
} // namespace

/// In the menu's order, which is also that in which ids are compared and pages closed.
const FactoryDebugView::MenuItem FactoryDebugView::menu[] = {
    {QT_TRANSLATE_NOOP("FactoryDebugView", "USB Test"), "usbtest", &View::showUsbTestView,
     &View::hideUsbTestView, true},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "USB Eye"), "usbeye", &View::showUsbEyeTestView,
     &View::hideUsbEyeTestView, true},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "NCM Test"), "ncmtest", &View::showNCMTestView,
     &View::hideNCMTestView, true},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "KeyColor"), "keycolor", &View::showKeyColorView,
     &View::hideKeyColorView, true},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Vendordata"), "vendordata", &View::showVendorDataView,
     &View::hideVendorDataView, true},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "GPS Update"), "gps", &View::showGpsView,
     &View::hideGpsView, false},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "ALS Test"), "als", &View::showALSTestView,
     &View::hideALSTestView, true},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Product"), "pdtVer", &View::showProductView,
     &View::hideProductView, true},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "SysCtrl"), "sysCtrl", &View::showSysCtrlView,
     &View::hideSysCtrlView, true},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Panel Config"), "idPanel", &View::showPanelView,
     &View::hidePanelView, true},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Copy Btsnoop"), "idCopyBtsnoop", &View::copyBtsnoop,
     nullptr, false},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Capture"), "idCapture", &View::flipCapture, nullptr,
     false},
    {QT_TRANSLATE_NOOP("FactoryDebugView", "Start USB Test"), "startUSBTest", &View::startUsbTest,
     nullptr, false},
};

FactoryDebugView::FactoryDebugView(QWidget *parent)
    : KvWidget(parent)
    , m_statusBar(new StatusBar(this))
    , m_shade(nullptr)
    , m_capturePopup(nullptr)
{
    connect(m_statusBar, &StatusBar::buttonClicked, this, &FactoryDebugView::buttonClicked);
    setGeometry(QRect(QPoint(0, 0), QPoint(799, 479)));
    initFactoryWidget();
}

FactoryDebugView::~FactoryDebugView()
{
    FACTORY_TRACE << "~FactoryDebugView";
    delete m_shade;
}

void FactoryDebugView::initFactoryWidget()
{
    // The bottom right corner stays the first button's.
    QRect rect(QPoint(65, 90), QPoint(274, 149));
    for (const MenuItem &item : menu) {
        const int columns = 3;
        rect.setLeft(65 + 230 * (m_buttons.size() % columns));
        rect.setTop(90 + 80 * (m_buttons.size() / columns));
        KvIconButton *button =
            createMenuButton(rect, tr(item.label), QString::fromLatin1(item.id), this);
        connect(button, &KvIconButton::btnClicked, this, &FactoryDebugView::buttonClicked);
        m_buttons.append(button);
    }
}

void FactoryDebugView::buttonClicked(QString id)
{
    FACTORY_TRACE << "id:" << id;
    const auto isMeant = [&id](const MenuItem &item) { return id == QLatin1String(item.id); };
    const MenuItem *item = std::find_if(std::begin(menu), std::end(menu), isMeant);
    if (id == QLatin1String("return")) {
        leavePage();
    } else if (id == QLatin1String("exit")) {
        closeActivity();
    } else if (item != std::end(menu)) {
        if (item->replacesPage) {
            hideSubViewPage();
        }
        // The action may be the end of this view.
        (this->*item->action)();
    }
}

void FactoryDebugView::leavePage()
{
    auto *usbTest = static_cast<USBTestView *>(m_pages[hostedpages::UsbTest].data());
    if (usbTest != nullptr && usbTestListType != UsbTestTopList) {
        usbTest->statusBarButtonClicked(QStringLiteral("return"));
    } else if (isPageOpen()) {
        showButtons();
    }
}

/// Also while the menu is hidden for a page that has deleted itself.
bool FactoryDebugView::isPageOpen() const
{
    return std::any_of(std::begin(m_pages), std::end(m_pages),
                       [](const QPointer<QObject> &page) { return !page.isNull(); })
        || m_buttons.first()->isHidden();
}

void FactoryDebugView::closeActivity()
{
    ActivityManager::self()->closeActivity(QStringLiteral("factorydebug"));
}

void FactoryDebugView::copyBtsnoop()
{
    const QStringList devices = mountedDevices();
    if (!devices.isEmpty()) {
        FACTORY_TRACE << "last device:" << devices.last();
        copyBtsnoopLogs(devices.last().toLocal8Bit());
    }
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
    if (!devices.isEmpty()) {
        // The framework may delete this view meanwhile.
        startUsbMediaTest(devices.last());
    }
}

void FactoryDebugView::captureStatusShow(bool on)
{
    if (m_capturePopup == nullptr) {
        m_capturePopup = new PopupView(UIManager::getUIHerarchy(popupLayer));
        m_capturePopup->setButtonType(withoutButtons);
    }
    m_capturePopup->setText(on ? tr("capture turned on") : tr("capture turned off"));
    m_capturePopup->setShowTimeout(2000);
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
    std::for_each(m_buttons.cbegin(), m_buttons.cend(),
                  [](KvIconButton *button) { button->show(); });
    hideAllSubPage();
    m_statusBar->interPrimary();
}

void FactoryDebugView::hideButtons()
{
    std::for_each(m_buttons.cbegin(), m_buttons.cend(),
                  [](KvIconButton *button) { button->hide(); });
}

void FactoryDebugView::hideAllSubPage()
{
    for (const MenuItem &item : menu) {
        if (item.closePage != nullptr) {
            (this->*item.closePage)();
        }
    }
}

void FactoryDebugView::openPage(const char *operation, hostedpages::Slot slot)
{
    FACTORY_TRACE << operation;
    QPointer<QObject> &page = m_pages[slot];
    if (page.isNull()) {
        page = hostedpages::make(slot, this, m_statusBar);
    }
    if (auto *widget = qobject_cast<QWidget *>(page.data())) {
        widget->show();
    }
    m_statusBar->interSecondary(tr(hostedpages::title(slot)));
}

void FactoryDebugView::closePage(const char *operation, hostedpages::Slot slot)
{
    FACTORY_TRACE << operation;
    delete m_pages[slot].data();
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

void FactoryDebugView::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event);
    QPainter painter(this);
    painter.fillRect(0, 0, width(), height(), QColor(11, 12, 13, 255));
}
