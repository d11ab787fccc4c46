#include "mcu/cmsgclass.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

namespace
{

const int usbMediaType = 1;

hardware::Unit &unit()
{
    return unitlink::unit();
}

QString lastUsbRoot()
{
    const QStringList roots = unit().storage().mountRoots(usbMediaType);
    return roots.isEmpty() ? QString() : roots.last();
}

} // namespace

CMsgClass::CMsgClass()
{
    const auto report = [this](const QString &mountRoot) {
        if (unit().storage().mediaType(mountRoot) != usbMediaType) {
            return;
        }
        emit sigDevRootPath(lastUsbRoot());
    };
    // With a receiver, so that news from other threads arrives on this object's.
    connect(&unit().storage(), &hardware::Storage::mounted, this, report);
    connect(&unit().storage(), &hardware::Storage::removed, this, report);
}

CMsgClass *CMsgClass::getInstance()
{
    return unitlink::service<CMsgClass>([] { return new CMsgClass; });
}

QString CMsgClass::getGpsVerInfo()
{
    return unitlink::answer("CMsgClass::getGpsVerInfo", QString(),
                            [] { return unit().versions().gps(); });
}

QString CMsgClass::getBluetoothVersion()
{
    return unitlink::answer("CMsgClass::getBluetoothVersion", QString(),
                            [] { return unit().versions().bluetooth(); });
}

int CMsgClass::getAlsPdtInfo()
{
    return unitlink::answer("CMsgClass::getAlsPdtInfo", 0,
                            [] { return unit().versions().alsProduct(); });
}

void CMsgClass::getDevRootPath(QString &path)
{
    path = unitlink::answer("CMsgClass::getDevRootPath", QString(), lastUsbRoot);
}

void CMsgClass::setUpdateReadyState(bool ready)
{
    if (!unitlink::fails("CMsgClass::setUpdateReadyState")) {
        unit().mcu().setUpdateReady(ready);
    }
}

void CMsgClass::playBeepTone(e_clickType type)
{
    if (!unitlink::fails("CMsgClass::playBeepTone")) {
        unit().mcu().beep(type);
    }
}

void CMsgClass::setSysReboot()
{
    if (!unitlink::fails("CMsgClass::setSysReboot")) {
        unit().mcu().reboot();
    }
}
