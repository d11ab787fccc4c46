#include "service/platformcontrol.h"

#include "hardware/unit/unit.h"
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
    return userUpdate().customerVersion(package);
}

QString PlatformControl::getSDKVer(QString package)
{
    return userUpdate().sdkVersion(package);
}

void PlatformControl::startVerifyChecksum(QString package)
{
    userUpdate().startVerification(package);
}

QByteArray PlatformControl::getUserUpdateData(DevType device, QString language)
{
    return userUpdate().data(device, language);
}

void PlatformControl::softWareReset()
{
    unitlink::unit().journal().write(QStringLiteral("platform"), QStringLiteral("software reset"));
    unitlink::unit().mcu().reboot();
}
