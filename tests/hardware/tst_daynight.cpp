#include "hardware/light/daynight.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QSignalSpy>
#include <QtTest>

using hardware::DayNight;

class tst_DayNight : public QObject
{
    Q_OBJECT

private slots:
    void aNewUnitDetectsWithTheTablesThresholds();
    void aReadingMakesTheMode_data();
    void aReadingMakesTheMode();
    void changesAreJournalledAndTold();
    void withoutDetectionTheModeStays();
    void detectionGoesByTheNewestReadingAtOnce();
    void aThresholdGoesByTheNewestReadingAtOnce();
    void thresholdsAndSwitchAreKept();
    void anUnusableFileIsRefused();
    void whatIsWrongIsSaid_data();
    void whatIsWrongIsSaid();
};

void tst_DayNight::aNewUnitDetectsWithTheTablesThresholds()
{
    OpenUnit unit;
    QCOMPARE(
        unit->dayNight().description(),
        (QStringList{QStringLiteral("day threshold 300"), QStringLiteral("night threshold 100"),
                     QStringLiteral("automatic 1"), QStringLiteral("mode day")}));
}

void tst_DayNight::aReadingMakesTheMode_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("reading");
    QTest::addColumn<bool>("night");
    QTest::newRow("above the day threshold") << 0 << 301 << false;
    QTest::newRow("at the day threshold, from night") << 0 << 300 << true;
    QTest::newRow("between, from night") << 0 << 200 << true;
    QTest::newRow("between, from day") << 500 << 200 << false;
    QTest::newRow("at the night threshold, from day") << 500 << 100 << false;
    QTest::newRow("below the night threshold") << 500 << 99 << true;
    QTest::newRow("negative") << 500 << -5 << true;
}

void tst_DayNight::aReadingMakesTheMode()
{
    QFETCH(int, before);
    QFETCH(int, reading);
    OpenUnit unit;
    unit->dayNight().takeReading(before);
    unit->dayNight().takeReading(reading);
    QTEST(unit->dayNight().mode() == DayNight::Night, "night");
}

void tst_DayNight::changesAreJournalledAndTold()
{
    OpenUnit unit;
    QSignalSpy changed(&unit->dayNight(), &DayNight::modeChanged);
    for (const int reading : {500, 50, 60, 200, 400, 500}) {
        unit->dayNight().takeReading(reading);
    }
    QCOMPARE(changed.count(), 2);
    QCOMPARE(unit->journal().lines(),
             (QStringList{QStringLiteral("unit mode night"), QStringLiteral("unit mode day")}));
}

void tst_DayNight::withoutDetectionTheModeStays()
{
    OpenUnit unit;
    unit->dayNight().setAutomatic(false);
    unit->dayNight().takeReading(0);
    QCOMPARE(unit->dayNight().mode(), DayNight::Day);
    QCOMPARE(unit->journal().lines(), QStringList{QStringLiteral("als automatic 0")});
}

void tst_DayNight::detectionGoesByTheNewestReadingAtOnce()
{
    OpenUnit unit;
    unit->dayNight().setAutomatic(false);
    unit->dayNight().takeReading(0);
    unit->dayNight().setAutomatic(true);
    QCOMPARE(unit->dayNight().mode(), DayNight::Night);
}

void tst_DayNight::aThresholdGoesByTheNewestReadingAtOnce()
{
    OpenUnit unit;
    unit->dayNight().setThreshold(DayNight::Night, 1000); // Without a reading there is no night.
    QCOMPARE(unit->dayNight().mode(), DayNight::Day);
    unit->dayNight().setThreshold(DayNight::Night, 100);
    unit->dayNight().takeReading(150);
    unit->dayNight().setThreshold(DayNight::Night, 151);
    QCOMPARE(unit->dayNight().mode(), DayNight::Night);
    unit->dayNight().setThreshold(DayNight::Day, 149);
    QCOMPARE(unit->dayNight().mode(), DayNight::Day);
}

void tst_DayNight::thresholdsAndSwitchAreKept()
{
    QTemporaryDir folder;
    QString error;
    const QString root = folder.filePath(QStringLiteral("unit"));
    {
        hardware::Unit unit(root);
        QVERIFY2(unit.open(&error), qPrintable(error));
        unit.dayNight().setThreshold(DayNight::Day, 777);
        unit.dayNight().setThreshold(DayNight::Night, -3);
        unit.dayNight().setAutomatic(false);
    }
    hardware::Unit unit(root);
    QVERIFY2(unit.open(&error), qPrintable(error));
    QCOMPARE(unit.dayNight().threshold(DayNight::Day), 777);
    QCOMPARE(unit.dayNight().threshold(DayNight::Night), -3);
    QVERIFY(!unit.dayNight().isAutomatic());
}

void tst_DayNight::anUnusableFileIsRefused()
{
    QTemporaryDir folder;
    QString error;
    const QString root = folder.filePath(QStringLiteral("unit"));
    QVERIFY(QDir().mkpath(root + QStringLiteral("/daynight.ini")));
    hardware::Unit unit(root);
    QVERIFY(!unit.open(&error));
    QVERIFY2(error.contains(QStringLiteral("daynight.ini")), qPrintable(error));
}

void tst_DayNight::whatIsWrongIsSaid_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("error");
    QTest::newRow("letters")
        << QByteArray("[daynight]\nday=many\nnight=1\nautomatic=true\n")
        << "line 2: section \"daynight\": day \"many\" is not allowed; allowed "
           "is a whole number from -2147483648 to 2147483647.";
    QTest::newRow("neither true nor false")
        << QByteArray("[daynight]\nday=2\nnight=1\nautomatic=maybe\n")
        << "line 4: section \"daynight\": automatic \"maybe\" is not allowed; allowed is true or "
           "false.";
    QTest::newRow("missing") << QByteArray("[daynight]\nday=2\nautomatic=true\n")
                             << "line 1: section \"daynight\" has no field night.";
    QTest::newRow("unknown field")
        << QByteArray("[daynight]\nday=2\nnight=1\nautomatic=true\ndusk=1\n")
        << "line 5: section \"daynight\": field \"dusk\" is not allowed; allowed is day, night, "
           "automatic.";
    QTest::newRow("another section") << QByteArray("[other]\nday=2\n")
                                     << "line 1: section \"other\": this name is not allowed; "
                                        "allowed is \"daynight\".";
}

void tst_DayNight::whatIsWrongIsSaid()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, error);
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("daynight.ini"));
    writeFile(file, content);
    hardware::Journal journal;
    DayNight dayNight(journal);
    QString said;
    QVERIFY(!dayNight.open(file, &said));
    QCOMPARE(said, file + QStringLiteral(", ") + error);
}

FACTORY_TEST_GUILESS_MAIN(tst_DayNight)
#include "tst_daynight.moc"
