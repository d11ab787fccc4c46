#include "service/calsdevice.h"

#include "hardware/unit/unit.h"
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
    return dayNight().threshold(day ? DayNight::Day : DayNight::Night);
}

void CALSDevice::setCriticalValueAsDay(int value)
{
    dayNight().setThreshold(DayNight::Day, value);
}

void CALSDevice::setCriticalValueAsNight(int value)
{
    dayNight().setThreshold(DayNight::Night, value);
}

void CALSDevice::autoDetectSwitch(bool on)
{
    dayNight().setAutomatic(on);
}

void CALSDevice::passReadingOn()
{
    const std::optional<int> reading = unitlink::unit().lightSensor().takeReading();
    if (reading) {
        emit sigSensorValue(*reading);
    }
}
