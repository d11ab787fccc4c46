#include "simmediaplaymodule.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

SimMediaplayModule::SimMediaplayModule() = default;

SimMediaplayModule::~SimMediaplayModule() = default;

QObject *SimMediaplayModule::getReceiver()
{
    return &m_receiver;
}

MediaplayModule *SimMediaplayModule::getMediaplayModule()
{
    return this;
}

bool SimMediaplayModule::isUSBTesting() const
{
    return m_usbTesting;
}

void SimMediaplayModule::setUSBTesting(bool testing)
{
    if (unitlink::fails("MediaplayModule::setUSBTesting")) {
        return;
    }
    m_usbTesting = testing;
    unitlink::unit().journal().write(QStringLiteral("mediaplay"),
                                     QStringLiteral("usb testing %1").arg(int(testing)));
}
