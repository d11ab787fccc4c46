#include "simulator/window/modeindicator.h"

#include "support/testmain.h"

#include <QtTest>

using simulator::ModeIndicator;

class TestModeIndicator : public QObject
{
    Q_OBJECT

private slots:
    void showsDayAndNight();
};

void TestModeIndicator::showsDayAndNight()
{
    ModeIndicator indicator(nullptr);
    QVERIFY(!indicator.isNight());
    const QImage day = indicator.grab().toImage();
    indicator.setNight(true);
    QVERIFY(indicator.isNight());
    const QImage night = indicator.grab().toImage();
    QVERIFY(night != day);
    indicator.setNight(false);
    QCOMPARE(indicator.grab().toImage(), day);
}

FACTORY_TEST_MAIN(TestModeIndicator)
#include "tst_modeindicator.moc"
