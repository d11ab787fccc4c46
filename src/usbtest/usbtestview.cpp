#include "usbtestview.h"

#include "usbtestdelegate.h"
#include "usbtestmodel.h"
#include "usbteststate.h"

#include "common/trace.h"
#include "customwidget/listpage.h"
#include "customwidget/listview.h"

#include "service/datasavecontrol.h"
#include "service/kvusbmanager.h"
#include "service/setupstridconst.h"
#include "service/usbcontrol.h"

namespace
{

constexpr int listRows = 3;

constexpr const char *listTitles[listRows] = {
    QT_TRANSLATE_NOOP("USBTestView", "USB0 BC Model"),
    QT_TRANSLATE_NOOP("USBTestView", "USB1 BC Model"),
    QT_TRANSLATE_NOOP("USBTestView", "TEST Model"),
};

/// What the USB service calls the rows of the test modes' list.
constexpr unsigned int certifications[listRows] = {'O', 'T', 'M'};

QString stored(const QString &key, const char *initial)
{
    return DataSaveControl::readSettingData(key, QString::fromLatin1(initial), QString())
        .toString();
}

} // namespace

USBTestView::USBTestView(QWidget *parent)
    : QObject(parent)
    , m_usbManager(kv_usb::KVUsbManager::GetInstance())
    , m_model(nullptr)
    , m_delegate(nullptr)
{
    traceManager();
    loadCurrentModes();
    usbTestListType = UsbTestTopList;
    m_model = new USBTestModel(this);
    m_delegate = new USBTestDelegate(this);
    showList(parent);
}

USBTestView::~USBTestView()
{
    FACTORY_TRACE << "~USBTestView";
}

void USBTestView::traceManager() const
{
    if (m_usbManager == nullptr) {
        return; // a library that speaks another version has no manager for us
    }
    const int port0 = m_usbManager->getPortMode(0);
    const int port1 = m_usbManager->getPortMode(1);
    const int certification = m_usbManager->getCertificationMode();
    FACTORY_TRACE << "port0Mode:" << port0 << ", port1Mode:" << port1
                  << ", usbCertification:" << certification;
}

void USBTestView::loadCurrentModes()
{
    curUsb0BCMode = stored(SetupStrIdConst::setupU0BCMode, "USB 0 CDP MODE");
    curUsb1BCMode = stored(SetupStrIdConst::setupU1BCMode, "USB 1 CDP MODE");
    curTestMode = stored(SetupStrIdConst::setupTestMode, "Normal Mode");
    FACTORY_TRACE << "curUsb0BCMode:" << curUsb0BCMode << ", curUsb1BCMode:" << curUsb1BCMode
                  << ", curTestMode:" << curTestMode;
}

void USBTestView::showList(QWidget *host)
{
    m_page.reset(new ListPage(host));
    ListView *list = m_page->listView();
    m_page->setRows(m_model, m_delegate);
    FACTORY_TRACE << "listview isHidden:" << list->isHidden();
    list->show();
    connect(list, &ListView::listClicked, this, &USBTestView::listClickedSlot);
}

void USBTestView::statusBarButtonClicked(QString id)
{
    if (id == QLatin1String("return") && usbTestListType != UsbTestTopList) {
        usbTestListType = UsbTestTopList;
        m_model->refresh();
        emit setTitle(tr("USB Test"));
    }
}

void USBTestView::listClickedSlot(QModelIndex index)
{
    const int row = index.row();
    if (row < 0 || row >= listRows) {
        return;
    }
    switch (usbTestListType) {
    case UsbTestTopList:
        openList(row);
        break;
    case UsbTestUsb0BcModes:
        chooseBcMode(0, row, &curUsb0BCMode, SetupStrIdConst::setupU0BCMode);
        break;
    case UsbTestUsb1BcModes:
        chooseBcMode(1, row, &curUsb1BCMode, SetupStrIdConst::setupU1BCMode);
        break;
    case UsbTestModes:
        chooseTestMode(row);
        break;
    }
}

void USBTestView::openList(int row)
{
    usbTestListType = UsbTestUsb0BcModes + row;
    if (usbTestListType == UsbTestModes) {
        m_page->listView()->repaint();
    }
    m_model->refresh();
    emit setTitle(tr(listTitles[row]));
}

void USBTestView::chooseBcMode(unsigned int port, int row, QString *current, const QString &key)
{
    UsbControl::getInstance()->setUsbBcMode(port, unsigned(row));
    keep(USBTestModel::modeText(usbTestListType, row), current, key);
}

void USBTestView::chooseTestMode(int row)
{
    UsbControl::getInstance()->setUsbCertification(certifications[row]);
    keep(USBTestModel::modeText(usbTestListType, row), &curTestMode,
         SetupStrIdConst::setupTestMode);
}

void USBTestView::keep(const QString &text, QString *current, const QString &key)
{
    *current = text;
    DataSaveControl::saveSettingData(key, *current, QString());
    FACTORY_TRACE << "Set " << *current;
    m_model->refresh();
}
