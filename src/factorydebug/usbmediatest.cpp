#include "usbmediatest.h"

#include "kvappframework/activitymanager.h"
#include "kvappframework/modulemanager.h"
#include "service/filedeviceparser.h"
#include "service/mediaplaymodule.h"

using namespace kvappframework;

namespace
{

constexpr auto testedMedia = static_cast<FileDeviceParser::MediaType>(1);

void setMediaplayUsbTesting()
{
    const auto mediaplay = qSharedPointerDynamicCast<MediaplayModulePlugin>(
        ModuleManager::self()->getModule(QStringLiteral("mediaplay")));
    if (!mediaplay.isNull()) {
        mediaplay->getMediaplayModule()->setUSBTesting(true);
    }
}

} // namespace

QStringList mountedDevices()
{
    return FileDeviceParser::getInstance()->getMountDeviceByType(testedMedia);
}

void startUsbMediaTest(const QString &device)
{
    FileDeviceParser::getInstance()->startParser(device);
    ActivityManager::self()->closeActivity(QStringLiteral("factorydebug"));
    setMediaplayUsbTesting();
    ActivityManager::self()->startActivity(QStringLiteral("usb"), 0);
}
