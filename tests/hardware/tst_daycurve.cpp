#include "hardware/light/daycurve.h"

#include "support/testmain.h"

#include <QtTest>

using hardware::DayCurve;

class tst_DayCurve : public QObject
{
    Q_OBJECT

private slots:
    void hours_data();
    void hours();
    void itIsNoisyAndRepeatable();
};

void tst_DayCurve::hours_data()
{
    QTest::addColumn<double>("days");
    QTest::addColumn<int>("light"); // Without noise: 4 + 896 times the sine of the sun's way.
    QTest::newRow("six") << 0.0 << 4;
    QTest::newRow("nine") << 0.125 << 638;
    QTest::newRow("noon") << 0.25 << 900;
    QTest::newRow("eighteen") << 0.5 << 4;
    QTest::newRow("midnight") << 0.75 << 4;
    QTest::newRow("noon of another day") << 7.25 << 900;
}

void tst_DayCurve::hours()
{
    QFETCH(double, days);
    QFETCH(int, light);
    DayCurve curve;
    for (int reading = 0; reading < 1000; ++reading) {
        const int value = curve.next(days);
        QVERIFY(value >= 0);
        QVERIFY2(qAbs(value - light) <= 1 + light / 50, qPrintable(QString::number(value)));
    }
}

void tst_DayCurve::itIsNoisyAndRepeatable()
{
    DayCurve first;
    DayCurve second;
    QSet<int> values;
    for (int reading = 0; reading < 100; ++reading) {
        const int value = first.next(0.25);
        QCOMPARE(second.next(0.25), value);
        values.insert(value);
    }
    QVERIFY(values.size() > 10);
}

FACTORY_TEST_GUILESS_MAIN(tst_DayCurve)
#include "tst_daycurve.moc"
