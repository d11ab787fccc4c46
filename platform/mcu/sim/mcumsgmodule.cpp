#include "mcu/mcumsgmodule.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

int McuMsgModule::sendMsgToMcu(unsigned char *buffer, int length)
{
    if (unitlink::fails("McuMsgModule::sendMsgToMcu") || buffer == nullptr || length <= 0) {
        return -1;
    }
    unitlink::unit().mcu().send(QByteArray(reinterpret_cast<const char *>(buffer), length));
    return length;
}
