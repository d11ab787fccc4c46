#include "hardware/light/lightsensor.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QtTest>

#include <atomic>

using hardware::DayNight;
using hardware::LightSensor;

class tst_LightSensor : public QObject
{
    Q_OBJECT

private slots:
    void aReportIsJournalledTakenOnceAndDetected();
    void itAsksOnceUntilItIsRead();
    void itFollowsADay();
    void theCurveKeepsTheUnitsTime();
    void anotherCurveTakesTheFirstOnesPlace();
    void aCurveEndsAtOnceAndWithTheUnit();
};

void tst_LightSensor::aReportIsJournalledTakenOnceAndDetected()
{
    OpenUnit unit;
    LightSensor &sensor = unit->lightSensor();
    QVERIFY(!sensor.reading());
    QVERIFY(!sensor.takeReading());
    sensor.report(-5);
    QCOMPARE(*sensor.takeReading(), -5);
    QVERIFY(!sensor.takeReading());
    QCOMPARE(*sensor.reading(), -5);
    QCOMPARE(unit->dayNight().mode(), DayNight::Night);
    QCOMPARE(unit->journal().lines(),
             (QStringList{QStringLiteral("als reading -5"), QStringLiteral("unit mode night")}));
}

void tst_LightSensor::itAsksOnceUntilItIsRead()
{
    OpenUnit unit;
    LightSensor &sensor = unit->lightSensor();
    QSignalSpy asked(&sensor, &LightSensor::readingReady);
    for (int reading = 1; reading <= 1000; ++reading) {
        sensor.report(reading);
    }
    QCOMPARE(asked.count(), 1);
    QCOMPARE(*sensor.takeReading(), 1000);
    sensor.report(7);
    QCOMPARE(asked.count(), 2);
}

void tst_LightSensor::itFollowsADay()
{
    // Written on the curve's thread, which ends with the unit.
    std::atomic<int> lightest{0};
    OpenUnit unit;
    LightSensor &sensor = unit->lightSensor();
    connect(
        &sensor, &LightSensor::readingReady, this,
        [&] { lightest = qMax(int(lightest), sensor.takeReading().value_or(0)); },
        Qt::DirectConnection);
    sensor.startCurve(200, 1);
    // A day and a night, by their effect.
    QTRY_VERIFY_WITH_TIMEOUT(unit->journal().lines(QStringLiteral("unit mode night")).size() >= 2,
                             20000);
    QVERIFY(!unit->journal().lines(QStringLiteral("unit mode day")).isEmpty());
    QTRY_VERIFY_WITH_TIMEOUT(lightest > 800, 20000);
    sensor.stopCurve();
    QCOMPARE(unit->journal().lines(QStringLiteral("/^als/")),
             (QStringList{QStringLiteral("als curve 200 1"), QStringLiteral("als curve ends")}));
}

void tst_LightSensor::theCurveKeepsTheUnitsTime()
{
    std::atomic<int> readings{0};
    OpenUnit unit(10);
    LightSensor &sensor = unit->lightSensor();
    connect(
        &sensor, &LightSensor::readingReady, this,
        [&] {
            sensor.takeReading();
            ++readings;
        },
        Qt::DirectConnection);
    QElapsedTimer clock;
    clock.start();
    sensor.startCurve(10, 60);
    QTRY_VERIFY_WITH_TIMEOUT(readings >= 50, 20000);
    // 49 tenths of a unit's second, ten times as fast.
    QVERIFY(clock.elapsed() >= 450);
    sensor.stopCurve();
}

void tst_LightSensor::anotherCurveTakesTheFirstOnesPlace()
{
    std::atomic<int> readings{0};
    OpenUnit unit;
    unit->lightSensor().startCurve(1, 240);
    unit->lightSensor().startCurve(100, 240);
    connect(
        &unit->lightSensor(), &LightSensor::readingReady, this,
        [&] {
            unit->lightSensor().takeReading();
            ++readings;
        },
        Qt::DirectConnection);
    unit->lightSensor().takeReading();
    QTRY_VERIFY_WITH_TIMEOUT(readings >= 20, 20000);
    unit->lightSensor().stopCurve();
    unit->lightSensor().stopCurve();
    QCOMPARE(unit->journal().lines(QStringLiteral("als curve ends")).size(), 1);
}

void tst_LightSensor::aCurveEndsAtOnceAndWithTheUnit()
{
    QElapsedTimer clock;
    {
        OpenUnit unit;
        unit->lightSensor().startCurve(1, 240); // Sleeps a second between readings.
        QTRY_VERIFY(unit->lightSensor().reading());
        clock.start();
    }
    QVERIFY(clock.elapsed() < 900);
}

FACTORY_TEST_GUILESS_MAIN(tst_LightSensor)
#include "tst_lightsensor.moc"
