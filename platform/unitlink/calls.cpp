#include "calls.h"

#include "simulatedunit.h"

#include "hardware/unit/unit.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace unitlink
{

namespace
{

constexpr const char *calls[] = {
    "CALSDevice::autoDetectSwitch",
    "CALSDevice::getCirticalValue",
    "CALSDevice::setCriticalValueAsDay",
    "CALSDevice::setCriticalValueAsNight",
    "CGpsModule::clearGpsConfig",
    "CGpsModule::stopWork",
    "CMsgClass::getAlsPdtInfo",
    "CMsgClass::getBluetoothVersion",
    "CMsgClass::getDevRootPath",
    "CMsgClass::getGpsVerInfo",
    "CMsgClass::playBeepTone",
    "CMsgClass::setSysReboot",
    "CMsgClass::setUpdateReadyState",
    "ComSysConfig::getCaptureStatus",
    "ComSysConfig::setCaptureStatus",
    "DabModule::DAB_GetSdkVersion",
    "DabModule::m_DAB_FwUpdate",
    "DabModule::m_DAB_GetCurrentStatus",
    "DataDefault::getDefault",
    "DataSaveControl::readSettingData",
    "DataSaveControl::saveSettingData",
    "DisplayControl::panelBrightness",
    "DisplayControl::panelContrast",
    "DisplayControl::panelHue",
    "DisplayControl::panelSaturation",
    "DisplayControl::setPanelBrightness",
    "DisplayControl::setPanelContrast",
    "DisplayControl::setPanelHue",
    "DisplayControl::setPanelSaturation",
    "FileDeviceParser::getMountDeviceByType",
    "FileDeviceParser::startParser",
    "KVPlatformControl::startTcpTestClient",
    "KVPlatformControl::startTcpTestServer",
    "KVPlatformControl::startUdpTestClient100",
    "KVPlatformControl::startUdpTestClient50",
    "KVPlatformControl::startUdpTestServer",
    "KVPlatformControl::stopTest",
    "KVUsbManager::create",
    "KVUsbManager::getCertificationMode",
    "KVUsbManager::getPortMode",
    "McuMsgModule::sendMsgToMcu",
    "MediaplayModule::setUSBTesting",
    "ModuleManager::getModule",
    "PlatformControl::getCustomerVer",
    "PlatformControl::getSDKVer",
    "PlatformControl::getUserUpdateData",
    "PlatformControl::softWareReset",
    "PlatformControl::startVerifyChecksum",
    "ThreadPool::addTask",
    "UsbControl::getHwCtrlId",
    "UsbControl::getMountDevice",
    "UsbControl::setUsbBcMode",
    "UsbControl::setUsbCertification",
    "UsbControl::setUsbTestMode",
    "VendorDataControl::getVendorPosOffset",
    "VendorDataControl::saveVendorDataInt",
    "VendorDataControl::saveVendorDataString",
};

} // namespace

QStringList callsThatCanFail()
{
    QStringList names;
    std::transform(std::begin(calls), std::end(calls), std::back_inserter(names),
                   [](const char *call) { return QString::fromLatin1(call); });
    return names;
}

bool fails(const char *call)
{
    Q_ASSERT(std::any_of(std::begin(calls), std::end(calls),
                         [call](const char *known) { return std::strcmp(known, call) == 0; }));
    hardware::CallFaults &faults = unit().callFaults();
    return !faults.isEmpty() && faults.fails(QString::fromLatin1(call));
}

void tellOfTouch(const QString &what)
{
    if (isLinked()) {
        unit().journal().write(QStringLiteral("touch"), what);
    }
}

void tellOfQuestion(const char *call, const QString &arguments, const QString &answer)
{
    unit().journal().write(QStringLiteral("asked"),
                           QStringLiteral("%1(%2) = ").arg(QLatin1String(call), arguments)
                               + answer);
}

} // namespace unitlink
