#include "service/comsysconfig.h"

#include "hardware/unit/unit.h"
#include "simlink/simulatedunit.h"

namespace
{
const auto captureKey = QStringLiteral("system/capture");
}

ComSysConfig::ComSysConfig() = default;

ComSysConfig *ComSysConfig::getInstance()
{
    return simlink::service<ComSysConfig>([] { return new ComSysConfig; });
}

bool ComSysConfig::getCaptureStatus()
{
    return simlink::unit().settings().value(captureKey, false).toBool();
}

void ComSysConfig::setCaptureStatus(bool on)
{
    simlink::unit().settings().setValue(captureKey, on);
}
