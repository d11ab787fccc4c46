#include "service/usbcontrol.h"

#include "hardware/unit/unit.h"
#include "simlink/simulatedunit.h"

UsbControl::UsbControl() = default;

UsbControl *UsbControl::getInstance()
{
    return simlink::service<UsbControl>([] { return new UsbControl; });
}

void UsbControl::setUsbBcMode(unsigned int port, unsigned int mode)
{
    simlink::unit().usbPorts().setBcMode(port, mode);
}

void UsbControl::setUsbCertification(unsigned int mode)
{
    simlink::unit().usbPorts().setCertification(mode);
}

void UsbControl::setUsbTestMode(UsbTestMode mode)
{
    simlink::unit().usbPorts().setTestMode(mode);
}

QStringList UsbControl::getMountDevice()
{
    return simlink::unit().storage().mountRoots();
}

int UsbControl::getHwCtrlId(QString mountRoot)
{
    return simlink::unit().storage().controllerId(mountRoot);
}
