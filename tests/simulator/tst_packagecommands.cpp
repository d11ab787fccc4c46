#include "simulator/commands/allcommands.h"

#include "testsimulator.h"

#include "support/testmain.h"

#include <QtTest>

/// Packages that the console puts on sticks.
class TestPackageCommands : public QObject
{
    Q_OBJECT

private slots:
    void puts_data();
    void puts();
    void aPluggedFolderGetsIt();
    void refuses();
};

void TestPackageCommands::puts_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("files");
    const QStringList gps = {"gps_bootloader.pkg", "gps_firmware.pkg"};
    QTest::newRow("gps") << "gps" << gps;
    QTest::newRow("gps-bad") << "gps-bad" << gps;
    QTest::newRow("update") << "update" << QStringList("ORRERY_PACK.BIN");
    QTest::newRow("update-bad") << "update-bad" << QStringList("ORRERY_PACK.BIN");
}

void TestPackageCommands::puts()
{
    QFETCH(QString, kind);
    TestSimulator unit;
    QCOMPARE(unit.errorOf("package usb1 " + kind), QString());
    const QDir stick(unit.path("/sticks/usb1"));
    QTEST(stick.entryList(QDir::Files, QDir::Name), "files");
    QCOMPARE(unit.journal().lines("storage"), QStringList("storage package usb1 " + kind));
}

void TestPackageCommands::aPluggedFolderGetsIt()
{
    TestSimulator unit;
    const QTemporaryDir stick;
    QCOMPARE(unit.errorOf("plug sd0 " + stick.path()), QString());
    QCOMPARE(unit.errorOf("package sd0 update"), QString());
    QVERIFY(QFile::exists(stick.filePath("ORRERY_PACK.BIN")));
}

void TestPackageCommands::refuses()
{
    TestSimulator unit;
    QCOMPARE(unit.errorOf("package usb7 gps"), QString("There is no slot \"usb7\"."));
    QCOMPARE(unit.errorOf("package usb0 music"),
             QString("there is no kind \"music\", only: gps, gps-bad, update, update-bad"));
    QCOMPARE(unit.errorOf("package usb0"), QString("usage: package SLOT KIND"));
    // A folder lies where the file is to be.
    const QTemporaryDir stick;
    QVERIFY(QDir(stick.path()).mkpath("ORRERY_PACK.BIN"));
    QCOMPARE(unit.errorOf("plug usb0 " + stick.path()), QString());
    QVERIFY(unit.errorOf("package usb0 update").startsWith("make-update-package failed: "));
    QVERIFY(unit.journal().lines("storage package").isEmpty());
}

FACTORY_TEST_MAIN(TestPackageCommands)
#include "tst_packagecommands.moc"
