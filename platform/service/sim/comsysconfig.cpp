#include "service/comsysconfig.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

namespace
{
const QLatin1String captureKey("system/capture");
}

ComSysConfig::ComSysConfig() = default;

ComSysConfig *ComSysConfig::getInstance()
{
    return unitlink::service<ComSysConfig>([] { return new ComSysConfig; });
}

bool ComSysConfig::getCaptureStatus()
{
    return unitlink::answer("ComSysConfig::getCaptureStatus", false, [] {
        return unitlink::unit().settings().value(captureKey, false).toBool();
    });
}

void ComSysConfig::setCaptureStatus(bool on)
{
    if (!unitlink::fails("ComSysConfig::setCaptureStatus")) {
        unitlink::unit().settings().setValue(captureKey, on);
    }
}
