#include "gps/cgpsmodule.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

class TestCGpsModule : public QObject
{
    Q_OBJECT

private slots:
    void operationsAreJournalled();
};

void TestCGpsModule::operationsAreJournalled()
{
    const TestUnit unit;
    CGpsModule::getInstance()->stopWork();
    CGpsModule::getInstance()->clearGpsConfig();
    QCOMPARE(unit.journal(QStringLiteral("/^gps /")),
             QStringList({QStringLiteral("gps service stopped"),
                          QStringLiteral("gps configuration cleared")}));
}

FACTORY_TEST_MAIN(TestCGpsModule)
#include "tst_cgpsmodule.moc"
