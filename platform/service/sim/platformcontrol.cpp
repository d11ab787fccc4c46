#include "service/platformcontrol.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

namespace
{

hardware::UserUpdate &userUpdate()
{
    return unitlink::unit().userUpdate();
}

} // namespace

PlatformControl::PlatformControl()
{
    connect(&userUpdate(), &hardware::UserUpdate::verified, this,
            &PlatformControl::ChecksumVerified, Qt::DirectConnection);
}

PlatformControl::~PlatformControl()
{
    // Before this object goes, so that no answer is on its way to it.
    userUpdate().cancelVerifications();
}

PlatformControl *PlatformControl::getInstance()
{
    return unitlink::service<PlatformControl>([] { return new PlatformControl; });
}

QString PlatformControl::getCustomerVer(QString package)
{
    const auto ask = [&package] { return userUpdate().customerVersion(package); };
    return unitlink::answer("PlatformControl::getCustomerVer", QString(), ask, package);
}

QString PlatformControl::getSDKVer(QString package)
{
    const auto ask = [&package] { return userUpdate().sdkVersion(package); };
    return unitlink::answer("PlatformControl::getSDKVer", QString(), ask, package);
}

void PlatformControl::startVerifyChecksum(QString package)
{
    if (!unitlink::fails("PlatformControl::startVerifyChecksum")) {
        userUpdate().startVerification(package);
    }
}

QByteArray PlatformControl::getUserUpdateData(DevType device, QString language)
{
    return unitlink::fails("PlatformControl::getUserUpdateData")
        ? QByteArray()
        : userUpdate().data(device, language);
}

void PlatformControl::softWareReset()
{
    if (!unitlink::fails("PlatformControl::softWareReset")) {
        unitlink::unit().journal().write(QStringLiteral("platform"),
                                         QStringLiteral("software reset"));
        unitlink::unit().mcu().reboot();
    }
}
