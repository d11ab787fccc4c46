#include "hardware/radio/dabtuner.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QFile>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

using hardware::DabTuner;
using hardware::JournalPattern;

class TestDabTuner : public QObject
{
    Q_OBJECT

private slots:
    void updateTakesTheWholeFileOverTime();
    void tellsFromAThreadOfItsOwn();
    void smallFileIsTakenToo();
    void updateFails_data();
    void updateFails();
    void fileThatVanishesFailsTheUpdate();
    void fileThatChangesFailsTheUpdate();
    void onlyOneUpdateAtATime();
    void anUpdateMayFollowAnother();
    void writeFailsAtItsPlace();
    void stallLastsUntilTheFaultIsGone();
    void muteTunerTellsNothing();
    void restartLosesTheUpdate();
    void rebootOfTheUnitRestartsTheTuner();
    void statusIsToldInOrder();
    void listenerMayAskForTheStatus();
    void endsInTheMiddleOfAnUpdate();
};

namespace
{

const double fast = 100.0; // an update of ten seconds lasts 100 ms
const int patienceMs = 20000;
const char root[] = "/media/usb0";

struct Tuner
{
    explicit Tuner(double timeFactor = fast)
        : unit(timeFactor)
    {
    }

    void writeFirmware(int size) const
    {
        writeFile(unit.path(QStringLiteral("/media/usb0/dab_firmware.bin")), QByteArray(size, 'f'));
    }

    bool awaitLine(const QString &pattern)
    {
        return unit->journal().waitFor(JournalPattern(pattern), 0, patienceMs) >= 0;
    }

    /// Whether an update starts and the journal then gets that line.
    bool updateTells(const QString &pattern)
    {
        return tuner.startUpdate(root) && awaitLine(pattern);
    }

    /// The same for an update of a file of 1000 bytes that meets with \a fault.
    bool updateTells(const QString &pattern, DabTuner::Fault fault, int percent)
    {
        writeFirmware(1000);
        tuner.setFault(fault, percent);
        return updateTells(pattern);
    }

    /// Whether such an update comes to a stand there.
    bool updateStalls(int percent)
    {
        return updateTells(QStringLiteral("dab progress %1").arg(percent), DabTuner::Stalls,
                           percent);
    }

    /// Lets a stalled update go on; whether the journal then gets that line.
    bool goesOnTo(const QString &pattern)
    {
        tuner.setFault(DabTuner::NoFault, 0);
        return awaitLine(pattern);
    }

    QStringList lines(const QString &pattern) { return unit->journal().lines(pattern); }

    OpenUnit unit;
    DabTuner &tuner = unit->dabTuner();
};

} // namespace

void TestDabTuner::updateTakesTheWholeFileOverTime()
{
    Tuner dab;
    dab.writeFirmware(12345);
    QCOMPARE(dab.tuner.status(), 0);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(dab.tuner.startUpdate(root));
    QCOMPARE(dab.tuner.status(), 7);
    QVERIFY(dab.awaitLine(QStringLiteral("dab tells 9")));
    QVERIFY2(clock.elapsed() >= 99, "ten seconds of a unit that runs 100 times as fast");
    QCOMPARE(dab.tuner.status(), 9);
    QCOMPARE(dab.tuner.progress(), 100);
    QCOMPARE(dab.lines(QStringLiteral("/^dab (update|tells)/")),
             QStringList({"dab update /media/usb0/dab_firmware.bin", "dab tells 7",
                          "dab update ok, 12345 bytes", "dab tells 9"}));
    QCOMPARE(
        dab.lines(QStringLiteral("dab progress")),
        QStringList({"dab progress 10", "dab progress 20", "dab progress 30", "dab progress 40",
                     "dab progress 50", "dab progress 60", "dab progress 70", "dab progress 80",
                     "dab progress 90", "dab progress 100"}));
}

void TestDabTuner::tellsFromAThreadOfItsOwn()
{
    Tuner dab;
    QAtomicPointer<QThread> thread;
    QObject::connect(&dab.tuner, &DabTuner::statusTold,
                     [&thread] { thread = QThread::currentThread(); });
    dab.tuner.setStatus(8);
    QTRY_VERIFY(thread.loadAcquire() != nullptr);
    QVERIFY(thread.loadAcquire() != QThread::currentThread());
}

void TestDabTuner::smallFileIsTakenToo()
{
    Tuner dab;
    dab.writeFirmware(3);
    QVERIFY(dab.updateTells(QStringLiteral("dab update ok, 3 bytes")));
}

void TestDabTuner::updateFails_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("no file") << -1;
    QTest::newRow("empty file") << 0;
}

void TestDabTuner::updateFails()
{
    QFETCH(int, size);
    Tuner dab;
    if (size >= 0) {
        dab.writeFirmware(size);
    }
    QVERIFY(dab.updateTells(QStringLiteral("dab tells 8")));
    QCOMPARE(dab.tuner.status(), 8);
    QCOMPARE(dab.lines(QStringLiteral("dab update failed: ")).size(), 1);
    QCOMPARE(dab.lines(QStringLiteral("dab progress")), QStringList());
}

void TestDabTuner::fileThatVanishesFailsTheUpdate()
{
    Tuner dab;
    QVERIFY(dab.updateStalls(50));
    QVERIFY(QFile::remove(dab.unit.path(QStringLiteral("/media/usb0/dab_firmware.bin"))));
    QVERIFY(dab.goesOnTo(QStringLiteral("dab tells 8")));
    QCOMPARE(dab.tuner.progress(), 50);
}

void TestDabTuner::fileThatChangesFailsTheUpdate()
{
    Tuner dab;
    QVERIFY(dab.updateStalls(50));
    dab.writeFirmware(2000);
    QVERIFY(dab.goesOnTo(QStringLiteral("dab tells 8")));
}

void TestDabTuner::onlyOneUpdateAtATime()
{
    Tuner dab(0.1);
    QVERIFY(dab.tuner.startUpdate(root));
    QVERIFY(!dab.tuner.startUpdate("/media/usb1"));
    QCOMPARE(dab.lines(QStringLiteral("/^dab (update|refused)/")),
             QStringList({"dab update /media/usb0/dab_firmware.bin",
                          "dab refused update /media/usb1/dab_firmware.bin: one is running"}));
}

void TestDabTuner::anUpdateMayFollowAnother()
{
    Tuner dab;
    QVERIFY(dab.updateTells(QStringLiteral("dab tells 8")));
    dab.writeFirmware(1000);
    QVERIFY(dab.updateTells(QStringLiteral("dab tells 9")));
    QVERIFY(dab.tuner.startUpdate(root));
    QCOMPARE(dab.tuner.progress(), 0);
}

void TestDabTuner::writeFailsAtItsPlace()
{
    Tuner dab;
    QVERIFY(dab.updateTells(QStringLiteral("dab tells 8"), DabTuner::WriteFails, 30));
    QCOMPARE(dab.tuner.progress(), 30);
    QCOMPARE(dab.lines(QStringLiteral("dab update failed")),
             QStringList("dab update failed: write error at 30 %"));
}

void TestDabTuner::stallLastsUntilTheFaultIsGone()
{
    Tuner dab;
    QVERIFY(dab.updateStalls(20));
    QTest::qSleep(200); // twice an update
    QCOMPARE(dab.tuner.progress(), 20);
    QCOMPARE(dab.tuner.status(), 7);
    QVERIFY(dab.goesOnTo(QStringLiteral("dab tells 9")));
}

void TestDabTuner::muteTunerTellsNothing()
{
    Tuner dab;
    QVERIFY(dab.updateTells(QStringLiteral("dab update ok"), DabTuner::IsMute, 0));
    QTRY_COMPARE(dab.tuner.status(), 9);
    QTest::qSleep(50);
    QCOMPARE(dab.lines(QStringLiteral("dab tells")), QStringList());
}

void TestDabTuner::restartLosesTheUpdate()
{
    Tuner dab;
    QVERIFY(dab.updateStalls(10));
    dab.tuner.restart();
    QCOMPARE(dab.tuner.status(), 0);
    QCOMPARE(dab.tuner.progress(), 0);
    dab.tuner.setFault(DabTuner::NoFault, 0);
    QTest::qSleep(200);
    QCOMPARE(dab.tuner.status(), 0);
    QCOMPARE(dab.lines(QStringLiteral("/^dab update (ok|failed)/")), QStringList());
}

void TestDabTuner::rebootOfTheUnitRestartsTheTuner()
{
    Tuner dab;
    dab.tuner.setStatus(9);
    dab.unit->mcu().reboot();
    QCOMPARE(dab.tuner.status(), 0);
    QCOMPARE(dab.lines(QStringLiteral("dab restarted")).size(), 1);
}

void TestDabTuner::statusIsToldInOrder()
{
    Tuner dab;
    QStringList expected;
    for (int status = 0; status < 50; ++status) {
        dab.tuner.setStatus(status);
        expected.append(QStringLiteral("dab tells %1").arg(status));
    }
    QVERIFY(dab.awaitLine(QStringLiteral("/^dab tells 49$/")));
    QCOMPARE(dab.lines(QStringLiteral("dab tells")), expected);
}

void TestDabTuner::listenerMayAskForTheStatus()
{
    Tuner dab;
    QAtomicInt heard;
    QObject::connect(&dab.tuner, &DabTuner::statusTold, [&](int) { heard = dab.tuner.status(); });
    dab.tuner.setStatus(9);
    QTRY_COMPARE(heard.loadAcquire(), 9);
}

void TestDabTuner::endsInTheMiddleOfAnUpdate()
{
    QElapsedTimer clock;
    clock.start();
    {
        Tuner dab(1.0);
        dab.writeFirmware(1000);
        QVERIFY(dab.tuner.startUpdate(root));
    }
    // Far less than the ten seconds of the update.
    QVERIFY2(clock.elapsed() < 8000, qPrintable(QString::number(clock.elapsed())));
}

FACTORY_TEST_GUILESS_MAIN(TestDabTuner)
#include "tst_dabtuner.moc"
