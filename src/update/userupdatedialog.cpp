#include "userupdatedialog.h"

#include "common/storedsetting.h"

#include "kvwidget/popupview.h"
#include "mcu/mcumsgmodule.h"
#include "service/filedeviceparser.h"
#include "service/platformcontrol.h"
#include "service/setupstridconst.h"
#include "service/usbcontrol.h"
#include "service/vendordatacontrol.h"

#include <QFile>
#include <QMap>

#include <algorithm>
#include <iterator>

namespace
{

constexpr char packageName[] = "ORRERY_PACK.BIN";
constexpr char errorPath[] = "/error_path/";
constexpr int showTimeoutMs = 30000;

/// Where the vendor data has what the boot loader is told of an update.
constexpr auto updatePosition = static_cast<VendorDataControl::VendorPos>(0);

constexpr int mcuBufferSize = 32;
constexpr unsigned char updateMessage[] = {0xFF, 0x66, 0x05, 0x1B, 0x8E, 0x05, 0x00, 0x00, 0xFF};

constexpr auto okAndCancel = static_cast<PopupView::ButtonType>(0);
constexpr auto buttonsAtBottom = static_cast<PopupView::ButtonPosition>(1);

constexpr auto mediaType1 = static_cast<FileDeviceParser::MediaType>(1);
constexpr auto mediaType2 = static_cast<FileDeviceParser::MediaType>(2);
constexpr auto anyDevice = static_cast<PlatformControl::DevType>(5);

/// Where a device type's storage is, and how the dialog asks for it.
struct Device
{
    FileDeviceParser::MediaType mediaType;
    int controllerId;
    const char *question;
};

/// In the order of the device types, which is also the order in which they are tried.
constexpr Device devices[] = {
    {mediaType1, 0, QT_TRANSLATE_NOOP("UserUpdateDialog", "User Update via SD0?\n")},
    {mediaType1, 1, QT_TRANSLATE_NOOP("UserUpdateDialog", "User Update via SD1?\n")},
    {mediaType2, 0, QT_TRANSLATE_NOOP("UserUpdateDialog", "User Update via USB0?\n")},
    {mediaType2, 1, QT_TRANSLATE_NOOP("UserUpdateDialog", "User Update via USB1?\n")},
};

bool isDevice(int type)
{
    return type >= 0 && type < int(sizeof devices / sizeof *devices);
}

QString withSlash(const QString &root)
{
    return root + QLatin1Char('/');
}

/// Root of the first device in the list that is that one, or an empty text.
QString firstRoot(const Device &device, UsbControl *usb)
{
    const QStringList roots =
        FileDeviceParser::getInstance()->getMountDeviceByType(device.mediaType);
    const auto isHere = [&device, usb](const QString &root) {
        return usb->getHwCtrlId(root) == device.controllerId;
    };
    const auto root = std::find_if(roots.begin(), roots.end(), isHere);
    return root == roots.end() ? QString() : withSlash(*root);
}

/// The device type of what hangs there, or -1.
int deviceType(FileDeviceParser::MediaType mediaType, int controllerId)
{
    const auto isThere = [mediaType, controllerId](const Device &device) {
        return device.mediaType == mediaType && device.controllerId == controllerId;
    };
    const Device *device = std::find_if(std::begin(devices), std::end(devices), isThere);
    return device == std::end(devices) ? -1 : int(device - devices);
}

/// What is mounted, by device type. Here a later device of a controller replaces an earlier one.
QMap<int, QString> rootsByType(UsbControl *usb)
{
    QMap<int, QString> found;
    for (const auto mediaType : {mediaType1, mediaType2}) {
        const QStringList roots = FileDeviceParser::getInstance()->getMountDeviceByType(mediaType);
        for (const QString &root : roots) {
            const int type = deviceType(mediaType, usb->getHwCtrlId(root));
            if (isDevice(type)) {
                found.insert(type, withSlash(root));
            }
        }
    }
    return found;
}

/// The first device that holds the file, or an empty text.
QString detect(const QString &fileName, UsbControl *usb)
{
    const QMap<int, QString> candidates = rootsByType(usb);
    for (const QString &root : candidates) {
        if (QFile::exists(QStringLiteral("%1%2").arg(root, fileName))) {
            return root;
        }
    }
    return QString();
}

void sendUpdateMessage()
{
    unsigned char buffer[mcuBufferSize] = {};
    std::copy(std::begin(updateMessage), std::end(updateMessage), buffer);
    McuMsgModule::sendMsgToMcu(buffer, sizeof updateMessage);
}

} // namespace

UserUpdateDialog::UserUpdateDialog(QRect rect, DeviceType type, QWidget *parent)
    : BaseView(QStringLiteral("setup UserUpdate"), parent)
    , m_type(type)
    , m_popup(nullptr)
    , m_packageFound(false)
{
    setGeometry(rect);
    setUpPopup();
    m_text = getDisplayString(type) + getVerString(type);
    m_popup->setText(m_packageFound ? m_text + tr("Verifing...") : m_text);
    m_popup->setButtonDisabled(QStringLiteral("popupview_ok"), true);
    connect(m_popup, &PopupView::ok, this, &UserUpdateDialog::popupViewOkClicked);
    connect(m_popup, &PopupView::cancel, this, &UserUpdateDialog::hidePopupView);
    raise();
    show();
}

void UserUpdateDialog::setUpPopup()
{
    m_popup = new PopupView(this);
    m_popup->setPopupViewId(QStringLiteral("userdata"));
    m_popup->setButtonType(okAndCancel);
    m_popup->setButtonPosition(buttonsAtBottom);
    m_popup->setShowTimeout(showTimeoutMs);
    m_popup->setOkText(tr("OK"));
    m_popup->setCancelText(tr("Cancel"));
}

QString UserUpdateDialog::getDisplayString(DeviceType type) const
{
    if (type == AutoDetect) {
        return tr("User Update Auto Detect mode?\n");
    }
    return isDevice(type) ? tr(devices[type].question) : QString();
}

QByteArray UserUpdateDialog::getHwString(DeviceType type, QByteArray fileName) const
{
    UsbControl *usb = UsbControl::getInstance();
    QString root;
    if (usb != nullptr && type == AutoDetect) {
        root = detect(QFile::decodeName(fileName), usb);
    } else if (usb != nullptr && isDevice(type)) {
        root = firstRoot(devices[type], usb);
    }
    return root.isEmpty() ? QByteArray(errorPath) : QFile::encodeName(root);
}

QString UserUpdateDialog::getVerString(DeviceType type)
{
    const QString path = QFile::decodeName(getHwString(type, packageName) + packageName);
    if (!QFile::exists(path)) {
        return tr("No ORRERY_PACK.BIN here!");
    }
    m_packageFound = true;
    PlatformControl *platform = PlatformControl::getInstance();
    const QString customerVersion = platform->getCustomerVer(path);
    const QString sdkVersion = platform->getSDKVer(path);
    connect(platform, &PlatformControl::ChecksumVerified, this,
            &UserUpdateDialog::ChecksumVerified);
    platform->startVerifyChecksum(path);
    // Filled in at once, since a version may hold a place marker itself.
    return QStringLiteral("%1%2\n%3%4\n")
        .arg(tr("NewCUSTVer:"), customerVersion, tr("NewSDKVer:"), sdkVersion);
}

void UserUpdateDialog::ChecksumVerified(int result)
{
    const bool good = result == 0;
    m_popup->setText(m_text + (good ? tr("Verify Pass") : tr("Verify Failed")));
    m_popup->setButtonDisabled(QStringLiteral("popupview_ok"), !good);
}

void UserUpdateDialog::popupViewOkClicked(QString id)
{
    Q_UNUSED(id);
    const QString language = storedSetting(SetupStrIdConst::setupSysLang).toString();
    if (!language.isEmpty() && handOver(language)) {
        sendUpdateMessage();
        PlatformControl::getInstance()->softWareReset();
    }
    deleteLater();
}

bool UserUpdateDialog::handOver(const QString &language) const
{
    const PlatformControl::DevType device =
        m_type == AutoDetect ? anyDevice : static_cast<PlatformControl::DevType>(m_type);
    QByteArray data = PlatformControl::getInstance()->getUserUpdateData(device, language);
    int offset = 0;
    int length = 0;
    if (data.isEmpty()
        || VendorDataControl::getVendorPosOffset(updatePosition, offset, length) != 0) {
        return false;
    }
    VendorDataControl::saveVendorDataString(data.data(), offset, qMin(data.size(), length));
    return true;
}

void UserUpdateDialog::hidePopupView(QString id)
{
    Q_UNUSED(id);
}
