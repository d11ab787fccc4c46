#include "upgradetest.h"

#include "waitslack.h"

#include "gps/gpsserial.h"
#include "gps/gpsupgrade.h"
#include "support/packages.h"

#include <QtTest>

void UpgradeTest::switchOn(int timeFactor)
{
    use_select_wait = 1;
    m_unit.reset(); // Its gate scales time.
    m_unit.reset(new TestUnit(timeFactor));
    m_unit->unit().gpsReceiver().setServiceReading(false);
    make(bootloader, "valid", "boot 7", 1500);
    make(firmware, "valid", "GNSS 9.8.7", 2600);
}

void UpgradeTest::switchOff()
{
    m_unit.reset();
}

void UpgradeTest::make(const QByteArray &file, const char *kind, const char *version, int size)
{
    makeGpsPackage(m_unit->path(QString::fromLatin1(file)), QString::fromLatin1(kind),
                   QString::fromLatin1(version), size);
}

void UpgradeTest::fault(const QString &words)
{
    QString error;
    QVERIFY2(m_unit->unit().gpsReceiver().addFault(words.split(QLatin1Char(' ')), &error),
             qPrintable(error));
}

Conversation UpgradeTest::upgrade()
{
    letWaitsEndLate();
    return converse([] { return upgradeStart(bootloader, firmware); });
}

void UpgradeTest::addFaultColumns()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<int>("timeFactor");
}

void UpgradeTest::addFaultRow(const char *words, int result, const QByteArray &end, int timeFactor)
{
    QTest::newRow(words) << QString::fromLatin1(words) << result << end << timeFactor;
}

void UpgradeTest::checkReturn()
{
    QFETCH(QString, fault);
    QFETCH(int, result);
    QFETCH(QByteArray, end);
    QFETCH(int, timeFactor);
    switchOn(timeFactor);
    const QStringList faults = fault.split(QStringLiteral("; "));
    for (const QString &words : faults) {
        this->fault(words);
    }
    const Conversation outcome = upgrade();
    QVERIFY2(outcome.result == result, outcome.output.constData());
    QVERIFY2(outcome.output.endsWith(end), outcome.output.constData());
    QCOMPARE(outcome.filesLeftOpen, fault.startsWith(QLatin1String("garbage")) ? 1 : 0);
}
