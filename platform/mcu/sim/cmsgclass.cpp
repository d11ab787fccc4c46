#include "mcu/cmsgclass.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

namespace
{

const int usbMediaType = 1;

hardware::Unit &unit()
{
    return unitlink::unit();
}

} // namespace

CMsgClass::CMsgClass()
{
    const auto report = [this](const QString &mountRoot) {
        if (unit().storage().mediaType(mountRoot) != usbMediaType) {
            return;
        }
        QString path;
        getDevRootPath(path);
        emit sigDevRootPath(path);
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
    return unit().versions().gps();
}

QString CMsgClass::getBluetoothVersion()
{
    return unit().versions().bluetooth();
}

int CMsgClass::getAlsPdtInfo()
{
    return unit().versions().alsProduct();
}

void CMsgClass::getDevRootPath(QString &path)
{
    const QStringList roots = unit().storage().mountRoots(usbMediaType);
    path = roots.isEmpty() ? QString() : roots.last();
}

void CMsgClass::setUpdateReadyState(bool ready)
{
    unit().mcu().setUpdateReady(ready);
}

void CMsgClass::playBeepTone(e_clickType type)
{
    unit().mcu().beep(type);
}

void CMsgClass::setSysReboot()
{
    unit().mcu().reboot();
}
