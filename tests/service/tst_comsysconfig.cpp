#include "service/comsysconfig.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QSettings>
#include <QtTest>

class TestComSysConfig : public QObject
{
    Q_OBJECT

private slots:
    void captureIsOffAtFirst();
    void captureIsStored();
};

void TestComSysConfig::captureIsOffAtFirst()
{
    const TestUnit unit;
    QCOMPARE(ComSysConfig::getInstance()->getCaptureStatus(), false);
}

void TestComSysConfig::captureIsStored()
{
    const TestUnit unit;
    ComSysConfig::getInstance()->setCaptureStatus(true);
    QCOMPARE(ComSysConfig::getInstance()->getCaptureStatus(), true);
    const QSettings file(unit.path(QStringLiteral("/settings.ini")), QSettings::IniFormat);
    QCOMPARE(file.value(QStringLiteral("system/capture")).toBool(), true);
    QCOMPARE(unit.journal(QStringLiteral("/^settings /")),
             QStringList(QStringLiteral("settings system/capture = true")));
}

FACTORY_TEST_MAIN(TestComSysConfig)
#include "tst_comsysconfig.moc"
