#include "gps/cgpsmodule.h"

#include "hardware/unit/unit.h"
#include "simlink/simulatedunit.h"

namespace
{

void journal(const QString &text)
{
    simlink::unit().journal().write(QStringLiteral("gps"), text);
}

} // namespace

CGpsModule::CGpsModule() = default;

CGpsModule *CGpsModule::getInstance()
{
    return simlink::service<CGpsModule>([] { return new CGpsModule; });
}

void CGpsModule::stopWork()
{
    simlink::unit().gpsReceiver().setServiceReading(false);
    journal(QStringLiteral("service stopped"));
}

void CGpsModule::clearGpsConfig()
{
    journal(QStringLiteral("configuration cleared"));
    simlink::unit().settings().removeGroup(QStringLiteral("gps"));
}
