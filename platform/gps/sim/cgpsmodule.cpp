#include "gps/cgpsmodule.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

namespace
{

void journal(const QString &text)
{
    unitlink::unit().journal().write(QStringLiteral("gps"), text);
}

} // namespace

CGpsModule::CGpsModule() = default;

CGpsModule *CGpsModule::getInstance()
{
    return unitlink::service<CGpsModule>([] { return new CGpsModule; });
}

void CGpsModule::stopWork()
{
    if (!unitlink::fails("CGpsModule::stopWork")) {
        unitlink::unit().gpsReceiver().setServiceReading(false);
        journal(QStringLiteral("service stopped"));
    }
}

void CGpsModule::clearGpsConfig()
{
    if (!unitlink::fails("CGpsModule::clearGpsConfig")) {
        journal(QStringLiteral("configuration cleared"));
        unitlink::unit().settings().removeGroup(QStringLiteral("gps"));
    }
}
