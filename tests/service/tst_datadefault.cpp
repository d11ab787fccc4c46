#include "service/datadefault.h"
#include "service/setupstridconst.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

class TestDataDefault : public QObject
{
    Q_OBJECT

private slots:
    void givesTheUnitsTable();
    void keyWithoutADefaultIsInvalid();
};

void TestDataDefault::givesTheUnitsTable()
{
    const TestUnit unit;
    // As in the table that a new unit starts with.
    QCOMPARE(DataDefault::getDefault(SetupStrIdConst::setupU0BCMode).toString(),
             QStringLiteral("USB 0 SDP MODE"));
    QCOMPARE(DataDefault::getDefault(SetupStrIdConst::setupDimmerItem).toString(),
             SetupStrIdConst::setupDimmerItemAuto);
    QCOMPARE(DataDefault::getDefault(SetupStrIdConst::sysCtrlCertificationSwitch).toBool(), false);
    QVERIFY(DataDefault::getDefault(SetupStrIdConst::setupSysLang).isValid());
}

void TestDataDefault::keyWithoutADefaultIsInvalid()
{
    const TestUnit unit;
    QVERIFY(!DataDefault::getDefault(QStringLiteral("none")).isValid());
}

FACTORY_TEST_MAIN(TestDataDefault)
#include "tst_datadefault.moc"
