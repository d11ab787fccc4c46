#include "gps/gpsupgrade.h"

#include "upgradetest.h"

#include "support/testmain.h"

#include <QtTest>

/// Upgrades in which the receiver sends an answer in two parts, 300 ms apart: in the unit's own
/// time, so that the host sees two as well.
class TestGpsUpgradeSplit : public QObject, private UpgradeTest
{
    Q_OBJECT

private slots:
    void cleanup();

    void returns_data();
    void returns();
    void splitYcIsFound();
};

void TestGpsUpgradeSplit::cleanup()
{
    switchOff();
}

void TestGpsUpgradeSplit::returns_data()
{
    addFaultColumns();
    addFaultRow("split-prompt", -3, timeOut, 1);
}

void TestGpsUpgradeSplit::returns()
{
    checkReturn();
}

void TestGpsUpgradeSplit::splitYcIsFound()
{
    switchOn(1);
    fault(QStringLiteral("split-yc"));
    const Conversation outcome = upgrade();
    QCOMPARE(outcome.result, 0);
    // The two bytes in front of each reading are shown with it: "$P" and then "PY". On a busy host
    // the last reading may have the loader's next "C" in it too.
    QVERIFY2(outcome.output.contains("10 s\n$PYPYC"), outcome.output.constData());
}

FACTORY_TEST_MAIN(TestGpsUpgradeSplit)
#include "tst_gpsupgrade_split.moc"
