#include "service/usbcontrol.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

UsbControl::UsbControl() = default;

UsbControl *UsbControl::getInstance()
{
    return unitlink::service<UsbControl>([] { return new UsbControl; });
}

void UsbControl::setUsbBcMode(unsigned int port, unsigned int mode)
{
    if (!unitlink::fails("UsbControl::setUsbBcMode")) {
        unitlink::unit().usbPorts().setBcMode(port, mode);
    }
}

void UsbControl::setUsbCertification(unsigned int mode)
{
    if (!unitlink::fails("UsbControl::setUsbCertification")) {
        unitlink::unit().usbPorts().setCertification(mode);
    }
}

void UsbControl::setUsbTestMode(UsbTestMode mode)
{
    if (!unitlink::fails("UsbControl::setUsbTestMode")) {
        unitlink::unit().usbPorts().setTestMode(mode);
    }
}

QStringList UsbControl::getMountDevice()
{
    return unitlink::answer("UsbControl::getMountDevice", QStringList(),
                            [] { return unitlink::unit().storage().mountRoots(); });
}

int UsbControl::getHwCtrlId(QString mountRoot)
{
    const auto ask = [&mountRoot] { return unitlink::unit().storage().controllerId(mountRoot); };
    return unitlink::answer("UsbControl::getHwCtrlId", -1, ask, mountRoot);
}
