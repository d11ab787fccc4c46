#include "gps/gpsupgrade.h"

#include "upgradetest.h"

#include "support/testmain.h"

#include <QtTest>

/// Upgrades that succeed in spite of the receiver's faults.
class TestGpsUpgradeSuccess : public QObject, private UpgradeTest
{
    Q_OBJECT

private slots:
    void cleanup();

    void returns_data();
    void returns();
    void zeroBytesDoNotHideYc();
};

void TestGpsUpgradeSuccess::cleanup()
{
    switchOff();
}

void TestGpsUpgradeSuccess::returns_data()
{
    addFaultColumns();
    const QByteArray success = "\n===== THE UPGRADE IS SUCCESSFUL, reseting=====\n";
    for (const char *words : {"no-yc", "late-eot 12000"}) {
        addFaultRow(words, 0, success);
    }
    addFaultRow("nak 3 2", 0, success, careful);
    // One more request, and its first noise is taken for the answer to a block.
    addFaultRow("noise 3", 0, success, unhurried);
    // One refusal of the twelve that end an upgrade is left.
    addFaultRow("nak 11 1", 0, success, unhurried);
}

void TestGpsUpgradeSuccess::returns()
{
    checkReturn();
}

void TestGpsUpgradeSuccess::zeroBytesDoNotHideYc()
{
    switchOn();
    // No product reply: the two bytes in front of the first reading are zero.
    fault(QStringLiteral("silence product"));
    const Conversation outcome = upgrade();
    QCOMPARE(outcome.result, 0);
    // On a busy host the reading may have the loader's next "C" in it too.
    QVERIFY2(outcome.output.startsWith("rByte = 0...\nwaiting for YC, timeout is 10 s\n"
                                       "\\01\\01YC"),
             outcome.output.constData());
}

FACTORY_TEST_MAIN(TestGpsUpgradeSuccess)
#include "tst_gpsupgrade_success.moc"
