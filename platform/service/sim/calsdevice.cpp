#include "service/calsdevice.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

using hardware::DayNight;

namespace
{

DayNight &dayNight()
{
    return unitlink::unit().dayNight();
}

} // namespace

CALSDevice::CALSDevice()
{
    hardware::LightSensor &sensor = unitlink::unit().lightSensor();
    connect(&sensor, &hardware::LightSensor::readingReady, this, &CALSDevice::passReadingOn);
    // What was reported before anyone listened still waits to be taken; nothing more would come.
    sensor.takeReading();
}

CALSDevice *CALSDevice::getInstance()
{
    return unitlink::service<CALSDevice>([] { return new CALSDevice; });
}

int CALSDevice::getCirticalValue(bool day)
{
    const auto ask = [day] { return dayNight().threshold(day ? DayNight::Day : DayNight::Night); };
    return unitlink::answer("CALSDevice::getCirticalValue", 0, ask, day);
}

void CALSDevice::setCriticalValueAsDay(int value)
{
    if (!unitlink::fails("CALSDevice::setCriticalValueAsDay")) {
        dayNight().setThreshold(DayNight::Day, value);
    }
}

void CALSDevice::setCriticalValueAsNight(int value)
{
    if (!unitlink::fails("CALSDevice::setCriticalValueAsNight")) {
        dayNight().setThreshold(DayNight::Night, value);
    }
}

void CALSDevice::autoDetectSwitch(bool on)
{
    if (!unitlink::fails("CALSDevice::autoDetectSwitch")) {
        dayNight().setAutomatic(on);
    }
}

void CALSDevice::passReadingOn()
{
    const std::optional<int> reading = unitlink::unit().lightSensor().takeReading();
    if (reading) {
        emit sigSensorValue(*reading);
    }
}
