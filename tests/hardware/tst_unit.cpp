#include "hardware/unit/unit.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <limits>
#include <thread>

using hardware::DayNight;
using hardware::Unit;

/// One of what a factory reset makes anew; it keeps a number below 128.
struct Store
{
    QString file;
    std::function<void(Unit &unit, int value)> set;
    std::function<int(Unit &unit)> get;
    std::function<bool(OpenUnit &unit, QString *error, const std::function<bool()> &prepare)> open;
};
Q_DECLARE_METATYPE(Store)

class tst_Unit : public QObject
{
    Q_OBJECT

private slots:
    void everyDeviceWorks();
    void aSecondStartFindsTheStateOfTheFirst();
    void whatAKilledSimulatorLeftIsRemovedAndTold();
    void theClockHasTheFactor();
    void theJournalTellsEachStartAndTheUnitsTime();
    void whatIsRefusedTakesNothingAway();
    void aFactoryResetForgetsWhatIsStored();
    void aFactoryResetLeavesAloneWhatOthersWrite();
    void whatIsSetDuringAFactoryResetIsAllThatIsSet_data();
    void whatIsSetDuringAFactoryResetIsAllThatIsSet();
    void aFactoryResetThatFailsSaysWhy();
    void openRefuses_data();
    void openRefuses();
};

void tst_Unit::everyDeviceWorks()
{
    OpenUnit unit;
    QString error;
    unit->settings().setValue(QStringLiteral("a"), 1);
    QVERIFY(unit->storage().plug(QStringLiteral("usb0"), QString(), &error));
    unit->mcu().beep(0);
    QCOMPARE(unit->shell().run("sync"), 0);
    QCOMPARE(unit->journal().lines(),
             (QStringList{QStringLiteral("settings a = 1"),
                          QStringLiteral("storage plug usb0 /media/usb0"),
                          QStringLiteral("mcu beep 0"), QStringLiteral("shell sync")}));
    QCOMPARE(readFile(unit.path(QStringLiteral("/journal.log"))).count('\n'), 5);
    QVERIFY(QFileInfo::exists(unit.path(QStringLiteral("/settings.ini"))));
}

void tst_Unit::aSecondStartFindsTheStateOfTheFirst()
{
    const QTemporaryDir folder;
    QString error;
    {
        Unit first(folder.path());
        QVERIFY2(first.open(&error), qPrintable(error));
        first.settings().setValue(QStringLiteral("capture"), true);
        QVERIFY(first.storage().plug(QStringLiteral("sd1"), QString(), &error));
    }
    Unit second(folder.path());
    QVERIFY2(second.open(&error), qPrintable(error));
    QCOMPARE(second.settings().value(QStringLiteral("capture")).toBool(), true);
    QCOMPARE(second.storage().mountRoots(), QStringList{QStringLiteral("/media/sd1")});
    QCOMPARE(readFile(folder.filePath(QStringLiteral("journal.log"))).count('\n'), 5);
}

void tst_Unit::whatAKilledSimulatorLeftIsRemovedAndTold()
{
    const QTemporaryDir folder;
    const QDir root(folder.path());
    const QStringList leftovers = {
        QStringLiteral("/settings.ini.part"),
        QStringLiteral("/dev/mem.part"),
        QStringLiteral("/receiver/firmware.pkg.part"),
        QStringLiteral("/bin/cp.part"),
        QStringLiteral("/sys/module/usbcore/parameters/usb_logo_test_start.part"),
        QStringLiteral("/run/as_server")};
    // Whoever wrote that, it was not the unit.
    const QString other = root.filePath(QStringLiteral("sticks/usb0/film.part"));
    const QStringList written = leftovers + QStringList(QStringLiteral("/sticks/usb0/film.part"));
    for (const QString &file : written) {
        QVERIFY(root.mkpath(QFileInfo(folder.path() + file).path()));
        writeFile(folder.path() + file, "x");
    }
    Unit unit(folder.path());
    QString error;
    QVERIFY2(unit.open(&error), qPrintable(error));
    QStringList lines = unit.journal().lines(QStringLiteral("unit removed"));
    lines.sort();
    QStringList wanted;
    for (const QString &file : leftovers) {
        wanted.append(QStringLiteral("unit removed ") + file);
        QVERIFY2(!QFile::exists(folder.path() + file), qPrintable(file));
    }
    wanted.sort();
    QCOMPARE(lines, wanted);
    QVERIFY(QFile::exists(other));
}

void tst_Unit::theClockHasTheFactor()
{
    QCOMPARE(Unit(QStringLiteral("x")).clock().factor(), 1.0);
    QCOMPARE(Unit(QStringLiteral("x"), 50).clock().factor(), 50.0);
}

void tst_Unit::theJournalTellsEachStartAndTheUnitsTime()
{
    const QTemporaryDir folder;
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    for (const double speed : {1.0, 500.0}) {
        QString error;
        Unit unit(folder.path(), speed);
        QVERIFY2(unit.open(&error), qPrintable(error));
        unit.clock().sleep(10000000 * speed / 500);
        unit.mcu().beep(0);
    }
    const QString journal =
        QString::fromUtf8(readFile(folder.filePath(QStringLiteral("journal.log"))));
    const QRegularExpression lines(
        QStringLiteral("^# (.{19}), version \\d+\\.\\d+\\.\\d+, speed 1\n"
                       "(\\d+\\.\\d{3}) #\\? mcu beep 0\n"
                       "# .{19}, version \\S+, speed 500\n"
                       "(\\d+\\.\\d{3}) #\\? mcu beep 0\n$"));
    const QRegularExpressionMatch match = lines.match(journal);
    QVERIFY2(match.hasMatch(), qPrintable(journal));
    const QDateTime started =
        QDateTime::fromString(match.captured(1), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    QVERIFY(started >= before && started <= QDateTime::currentDateTime());
    // 20 ms of the host each: ten seconds of the fast unit.
    QVERIFY2(match.captured(2).toDouble() < 5, qPrintable(journal));
    QVERIFY2(match.captured(3).toDouble() >= 10, qPrintable(journal));
}

void tst_Unit::whatIsRefusedTakesNothingAway()
{
    OpenUnit unit;
    const QFileInfo port(unit.path(QStringLiteral("/dev/ttyS3")));
    const QFileInfo lock(unit.path(QStringLiteral("/lock")));
    {
        QString error;
        Unit second(unit.path(QString()));
        QVERIFY(!second.open(&error));
        const Unit never(unit.path(QString()));
    }
    QVERIFY(port.isSymLink());
    QVERIFY(lock.exists());
}

void tst_Unit::aFactoryResetForgetsWhatIsStored()
{
    OpenUnit fresh;
    OpenUnit unit;
    const auto stored = [](OpenUnit &each) {
        QStringList all = each->settings().keys() + each->dayNight().description();
        const QList<hardware::VendorItem> items = each->vendorData().items();
        for (const hardware::VendorItem &item : items) {
            all += QString::fromLatin1(each->vendorData().item(item.position).toHex());
        }
        return all + QStringList(QString::number(each->panel().value(hardware::Panel::Hue)));
    };
    const QString log = unit.path(QStringLiteral("/media/flash/userdata/btsnoop.log"));
    QString error;
    unit->settings().setValue(QStringLiteral("a"), 1);
    unit->dayNight().setThreshold(hardware::DayNight::Day, 7);
    QVERIFY(unit->vendorData().write(0, QByteArray(8, '\x55')));
    writeFile(log, "a log");
    QVERIFY(unit->storage().plug(QStringLiteral("usb0"), QString(), &error));
    QVERIFY(unit->versions().setValue(QStringLiteral("gps"), QStringLiteral("9"), &error));
    QVERIFY(stored(unit) != stored(fresh));

    QVERIFY2(unit->resetToFactory(&error), qPrintable(error));
    QCOMPARE(stored(unit), stored(fresh));
    QVERIFY(!QFileInfo::exists(log));
    QVERIFY(QFileInfo(unit.path(QStringLiteral("/media/flash/userdata"))).isDir());
    QVERIFY(!QFileInfo::exists(unit.path(QStringLiteral("/settings.ini"))));
    QCOMPARE(unit->storage().mountRoots(), QStringList(QStringLiteral("/media/usb0")));
    QCOMPARE(unit->versions().gps(), QStringLiteral("9"));
    QCOMPARE(unit->journal().lines(QStringLiteral("unit ")),
             QStringList(QStringLiteral("unit factory reset")));
}

void tst_Unit::aFactoryResetLeavesAloneWhatOthersWrite()
{
    OpenUnit unit;
    const QString begun = unit.path(QStringLiteral("/versions.ini.part"));
    writeFile(begun, "another thread's");
    QString error;
    QVERIFY2(unit->resetToFactory(&error), qPrintable(error));
    QCOMPARE(readFile(begun), QByteArray("another thread's"));
}

void tst_Unit::whatIsSetDuringAFactoryResetIsAllThatIsSet_data()
{
    using Prepare = std::function<bool()>;
    QTest::addColumn<Store>("store");

    const auto settingsFile = QStringLiteral("/settings.ini");
    QTest::newRow("settings") << Store{
        settingsFile,
        [](Unit &unit, int value) { unit.settings().setValue(QStringLiteral("a"), value); },
        [](Unit &unit) { return unit.settings().value(QStringLiteral("a")).toInt(); },
        [=](OpenUnit &unit, QString *error, const Prepare &prepare) {
            return unit->settings().open(unit.path(settingsFile), error, prepare);
        }};
    const auto vendorFile = QStringLiteral("/vendor.bin");
    QTest::newRow("vendor data") << Store{
        vendorFile,
        [](Unit &unit, int value) { unit.vendorData().write(0, QByteArray(1, char(value))); },
        [](Unit &unit) { return int(unit.vendorData().item(0).at(0)); },
        [=](OpenUnit &unit, QString *error, const Prepare &prepare) {
            return unit->vendorData().open(unit.path(QStringLiteral("/vendor.ini")),
                                           unit.path(vendorFile), error, prepare);
        }};
    const auto dayNightFile = QStringLiteral("/daynight.ini");
    QTest::newRow("day and night")
        << Store{dayNightFile,
                 [](Unit &unit, int value) { unit.dayNight().setThreshold(DayNight::Day, value); },
                 [](Unit &unit) { return unit.dayNight().threshold(DayNight::Day); },
                 [=](OpenUnit &unit, QString *error, const Prepare &prepare) {
                     return unit->dayNight().open(unit.path(dayNightFile), error, prepare);
                 }};
}

void tst_Unit::whatIsSetDuringAFactoryResetIsAllThatIsSet()
{
    QFETCH(Store, store);
    OpenUnit unit;
    const QString file = unit.path(store.file);
    const bool wasThere = QFileInfo::exists(file);
    const QByteArray atFirst = wasThere ? readFile(file) : QByteArray();
    store.set(*unit, 1);
    std::thread other;
    QString error;
    const auto setMeanwhile = [&] {
        other = std::thread([&] { store.set(*unit, 2); });
        QTest::qSleep(50);
        if (wasThere) {
            writeFile(file, atFirst);
        }
        return wasThere || QFile::remove(file);
    };
    const bool isOpen = store.open(unit, &error, setMeanwhile);
    other.join();
    QVERIFY2(isOpen, qPrintable(error));
    QCOMPARE(store.get(*unit), 2);
    // What is kept is what is told.
    QVERIFY2(store.open(unit, &error, [] { return true; }), qPrintable(error));
    QCOMPARE(store.get(*unit), 2);
}

void tst_Unit::aFactoryResetThatFailsSaysWhy()
{
    OpenUnit unit;
    const QString memory = unit.path(QStringLiteral("/vendor.bin"));
    QVERIFY(QFile::remove(memory));
    QVERIFY(QDir().mkpath(memory + QStringLiteral("/in the way")));
    const QString log = unit.path(QStringLiteral("/media/flash/userdata/btsnoop.log"));
    writeFile(log, "a log");
    QString error;
    QVERIFY(!unit->resetToFactory(&error));
    QCOMPARE(error, QStringLiteral("\"%1\" cannot be removed.").arg(memory));
    QCOMPARE(readFile(log), QByteArray("a log"));
}

void tst_Unit::openRefuses_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("brokenFile");
    QTest::addColumn<QString>("error");

    QTest::newRow("factor 0") << 0.0 << ""
                              << "The time factor 0 is not allowed; it must be greater than 0.";
    QTest::newRow("negative factor")
        << -2.0 << ""
        << "The time factor -2 is not allowed; it must be greater than 0.";
    QTest::newRow("endless factor")
        << std::numeric_limits<double>::infinity() << ""
        << "The time factor inf is not allowed; it must be greater than 0.";
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << ""
                               << "The time factor nan is not allowed; it must be greater than 0.";
    QTest::newRow("folder") << 1.0 << "dev"
                            << "The folder \"%1\" of the unit cannot be made.";
    QTest::newRow("settings") << 1.0 << "settings.ini"
                              << "The settings file \"%1\" is damaged: ";
    QTest::newRow("storage") << 1.0 << "slots.ini"
                             << "%1, line 1: ";
    QTest::newRow("journal") << 1.0 << "journal.log/"
                             << "The journal \"%1\" cannot be written.";
}

void tst_Unit::openRefuses()
{
    QFETCH(double, factor);
    QFETCH(QString, brokenFile);
    QFETCH(QString, error);

    const QTemporaryDir folder;
    if (brokenFile.endsWith(QLatin1Char('/'))) {
        brokenFile.chop(1);
        QVERIFY(QDir(folder.path()).mkdir(brokenFile));
    } else if (!brokenFile.isEmpty()) {
        writeFile(folder.filePath(brokenFile), "this is a letter\n");
    }
    if (!brokenFile.isEmpty()) {
        error = error.arg(folder.filePath(brokenFile));
    }
    Unit unit(folder.path(), factor);
    QString said;
    QVERIFY(!unit.open(&said));
    QVERIFY2(said.startsWith(error), qPrintable(said));
}

FACTORY_TEST_GUILESS_MAIN(tst_Unit)
#include "tst_unit.moc"
