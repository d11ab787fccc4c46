#include "service/calsdevice.h"

#include "hardware/unit/unit.h"
#include "simlink/simulatedunit.h"

using hardware::DayNight;

namespace
{

DayNight &dayNight()
{
    return simlink::unit().dayNight();
}

} // namespace

CALSDevice::CALSDevice()
{
    hardware::LightSensor &sensor = simlink::unit().lightSensor();
    connect(&sensor, &hardware::LightSensor::readingReady, this, &CALSDevice::passReadingOn);
    // What was reported before anyone listened still waits to be taken; nothing more would come.
    sensor.takeReading();
}

CALSDevice *CALSDevice::getInstance()
{
    return simlink::service<CALSDevice>([] { return new CALSDevice; });
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
    const std::optional<int> reading = simlink::unit().lightSensor().takeReading();
    if (reading) {
        emit sigSensorValue(*reading);
    }
}
