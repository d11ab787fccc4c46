#include "service/calsdevice.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QSignalSpy>
#include <QtTest>

#include <thread>

using hardware::DayNight;

class TestCALSDevice : public QObject
{
    Q_OBJECT

private slots:
    void thresholdsAreTheUnits();
    void switchIsTheUnits();
    void everyReadingIsPassedOn();
    void readingFromAnotherThreadArrivesOnTheGraphicalOne();
    void readingBeforeTheServiceDoesNotStopThoseAfter();
};

void TestCALSDevice::thresholdsAreTheUnits()
{
    TestUnit unit;
    CALSDevice *device = CALSDevice::getInstance();
    QCOMPARE(device->getCirticalValue(true), 300);
    QCOMPARE(device->getCirticalValue(false), 100);
    device->setCriticalValueAsDay(400);
    device->setCriticalValueAsNight(50);
    QCOMPARE(unit.unit().dayNight().threshold(DayNight::Day), 400);
    QCOMPARE(unit.unit().dayNight().threshold(DayNight::Night), 50);
    QCOMPARE(device->getCirticalValue(true), 400);
    QCOMPARE(device->getCirticalValue(false), 50);
}

void TestCALSDevice::switchIsTheUnits()
{
    TestUnit unit;
    CALSDevice::getInstance()->autoDetectSwitch(false);
    QVERIFY(!unit.unit().dayNight().isAutomatic());
    CALSDevice::getInstance()->autoDetectSwitch(true);
    QVERIFY(unit.unit().dayNight().isAutomatic());
}

void TestCALSDevice::everyReadingIsPassedOn()
{
    TestUnit unit;
    QSignalSpy readings(CALSDevice::getInstance(), &CALSDevice::sigSensorValue);
    for (const int reading : {-5, 0, 0, 2147483647}) {
        unit.unit().lightSensor().report(reading);
    }
    QCOMPARE(readings.count(), 4);
    QCOMPARE(readings.at(0).at(0).toInt(), -5);
    QCOMPARE(readings.at(3).at(0).toInt(), 2147483647);
}

void TestCALSDevice::readingFromAnotherThreadArrivesOnTheGraphicalOne()
{
    TestUnit unit;
    QThread *heardOn = nullptr;
    int heard = 0;
    connect(
        CALSDevice::getInstance(), &CALSDevice::sigSensorValue, CALSDevice::getInstance(),
        [&heardOn, &heard](int value) {
            heardOn = QThread::currentThread();
            heard = value;
        },
        Qt::DirectConnection);
    std::thread([&unit] { unit.unit().lightSensor().report(42); }).join();
    QTRY_COMPARE(heard, 42);
    QCOMPARE(heardOn, QThread::currentThread());
}

void TestCALSDevice::readingBeforeTheServiceDoesNotStopThoseAfter()
{
    TestUnit unit;
    unit.unit().lightSensor().report(1);
    QSignalSpy readings(CALSDevice::getInstance(), &CALSDevice::sigSensorValue);
    unit.unit().lightSensor().report(2);
    QCOMPARE(readings.count(), 1);
    QCOMPARE(readings.at(0).at(0).toInt(), 2);
}

FACTORY_TEST_MAIN(TestCALSDevice)
#include "tst_calsdevice.moc"
