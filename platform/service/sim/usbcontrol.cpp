#include "service/usbcontrol.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

UsbControl::UsbControl() = default;

UsbControl *UsbControl::getInstance()
{
    return unitlink::service<UsbControl>([] { return new UsbControl; });
}

void UsbControl::setUsbBcMode(unsigned int port, unsigned int mode)
{
    unitlink::unit().usbPorts().setBcMode(port, mode);
}

void UsbControl::setUsbCertification(unsigned int mode)
{
    unitlink::unit().usbPorts().setCertification(mode);
}

void UsbControl::setUsbTestMode(UsbTestMode mode)
{
    unitlink::unit().usbPorts().setTestMode(mode);
}

QStringList UsbControl::getMountDevice()
{
    return unitlink::unit().storage().mountRoots();
}

int UsbControl::getHwCtrlId(QString mountRoot)
{
    return unitlink::unit().storage().controllerId(mountRoot);
}
