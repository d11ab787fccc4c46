#include "service/platformcontrol.h"

#include "hardware/unit/unit.h"
#include "simlink/simulatedunit.h"

namespace
{

hardware::UserUpdate &userUpdate()
{
    return simlink::unit().userUpdate();
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
    return simlink::service<PlatformControl>([] { return new PlatformControl; });
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
    simlink::unit().journal().write(QStringLiteral("platform"), QStringLiteral("software reset"));
    simlink::unit().mcu().reboot();
}
