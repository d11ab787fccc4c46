#include "hardware/update/userupdate.h"

#include "support/openunit.h"
#include "support/packages.h"
#include "support/testmain.h"

#include <QThread>
#include <QtTest>

#include <atomic>

class TestUserUpdate : public QObject
{
    Q_OBJECT

private slots:
    void answersFromItsOwnThread();
    void answersInTheOrderOfTheQuestions();
    void checkTakesItsTime();
    void largePackageTakesLonger();
    void silenceIsAFault();
    void pulledPackageIsUnreadable();
    void cancelledChecksAreNotAnswered();
    void endsWhileAPackageIsChecked();
    void data_data();
    void data();
    void refusedDataIsEmpty();
};

namespace
{

const QString package = QStringLiteral("/media/flash/ORRERY_PACK.BIN");

/// Hears the answers on whichever thread they come from.
class Listener
{
public:
    explicit Listener(hardware::UserUpdate &service)
    {
        QObject::connect(
            &service, &hardware::UserUpdate::verified, &m_here,
            [this](int result) {
                thread = QThread::currentThread();
                last = result;
                ++answers;
            },
            Qt::DirectConnection);
    }

    std::atomic<int> answers{0};
    std::atomic<int> last{-1};
    std::atomic<QThread *> thread{nullptr};

private:
    QObject m_here;
};

} // namespace

void TestUserUpdate::answersFromItsOwnThread()
{
    OpenUnit unit(30);
    makeUpdatePackage(unit.path(package));
    Listener listener(unit->userUpdate());
    unit->userUpdate().startVerification(package);
    QCOMPARE(listener.answers.load(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(listener.answers.load(), 1, 20000);
    QCOMPARE(listener.last.load(), 0);
    QVERIFY(listener.thread.load() != QThread::currentThread());
    QCOMPARE(unit->journal().lines(QStringLiteral("/^update/")),
             QStringList({QStringLiteral("update verify ") + package,
                          QStringLiteral("update verified 0 good")}));
}

void TestUserUpdate::answersInTheOrderOfTheQuestions()
{
    OpenUnit unit(100);
    makeUpdatePackage(unit.path(package));
    makeUpdatePackage(unit.path(QStringLiteral("/media/flash/bad")), {QStringLiteral("--corrupt")});
    makeUpdatePackage(unit.path(QStringLiteral("/media/flash/cut")),
                      {QStringLiteral("--truncated")});
    Listener listener(unit->userUpdate());
    unit->userUpdate().startVerification(QStringLiteral("/media/flash/bad"));
    unit->userUpdate().startVerification(package);
    unit->userUpdate().startVerification(QStringLiteral("/media/flash/cut"));
    unit->userUpdate().startVerification(QStringLiteral("/media/flash/none"));
    QTRY_COMPARE_WITH_TIMEOUT(listener.answers.load(), 4, 20000);
    QCOMPARE(unit->journal().lines(QStringLiteral("update verified")),
             QStringList({QStringLiteral("update verified 1 wrong checksum"),
                          QStringLiteral("update verified 0 good"),
                          QStringLiteral("update verified 4 wrong length"),
                          QStringLiteral("update verified 2 unreadable")}));
}

void TestUserUpdate::checkTakesItsTime()
{
    // 1.5 s of the unit's time at 10 times the speed.
    OpenUnit unit(10);
    makeUpdatePackage(unit.path(package));
    Listener listener(unit->userUpdate());
    QElapsedTimer clock;
    clock.start();
    unit->userUpdate().startVerification(package);
    QTRY_COMPARE_WITH_TIMEOUT(listener.answers.load(), 1, 20000);
    QVERIFY(clock.elapsed() >= 145);
}

void TestUserUpdate::largePackageTakesLonger()
{
    // 1.5 s and 10 times 50 ms at 5 times the speed.
    OpenUnit unit(5);
    makeUpdatePackage(unit.path(package), {QStringLiteral("--size"), QStringLiteral("11000000")});
    Listener listener(unit->userUpdate());
    QElapsedTimer clock;
    clock.start();
    unit->userUpdate().startVerification(package);
    QTRY_COMPARE_WITH_TIMEOUT(listener.answers.load(), 1, 20000);
    QVERIFY(clock.elapsed() >= 395);
    QCOMPARE(listener.last.load(), 0);
}

void TestUserUpdate::silenceIsAFault()
{
    OpenUnit unit(100);
    makeUpdatePackage(unit.path(package));
    Listener listener(unit->userUpdate());
    unit->userUpdate().setSilent(true);
    unit->userUpdate().startVerification(package);
    QTest::qWait(300);
    QCOMPARE(listener.answers.load(), 0);
    unit->userUpdate().setSilent(false);
    unit->userUpdate().startVerification(package);
    QTRY_COMPARE_WITH_TIMEOUT(listener.answers.load(), 1, 20000);
}

void TestUserUpdate::pulledPackageIsUnreadable()
{
    OpenUnit unit(20);
    makeUpdatePackage(unit.path(QStringLiteral("/sticks/usb0/ORRERY_PACK.BIN")));
    QString error;
    QVERIFY2(unit->storage().plug(QStringLiteral("usb0"), QString(), &error), qPrintable(error));
    Listener listener(unit->userUpdate());
    unit->userUpdate().startVerification(QStringLiteral("/media/usb0/ORRERY_PACK.BIN"));
    QVERIFY(unit->storage().pull(QStringLiteral("usb0"), &error));
    QTRY_COMPARE_WITH_TIMEOUT(listener.answers.load(), 1, 20000);
    QCOMPARE(listener.last.load(), 2);
}

void TestUserUpdate::cancelledChecksAreNotAnswered()
{
    OpenUnit unit(10);
    makeUpdatePackage(unit.path(package));
    Listener listener(unit->userUpdate());
    unit->userUpdate().startVerification(package);
    unit->userUpdate().startVerification(package);
    unit->userUpdate().cancelVerifications();
    QTest::qWait(500);
    QCOMPARE(listener.answers.load(), 0);
    unit->userUpdate().startVerification(package);
    QTRY_COMPARE_WITH_TIMEOUT(listener.answers.load(), 1, 20000);
}

void TestUserUpdate::endsWhileAPackageIsChecked()
{
    QElapsedTimer clock;
    clock.start();
    {
        OpenUnit unit(0.01); // A check lasts 150 s.
        makeUpdatePackage(unit.path(package));
        unit->userUpdate().startVerification(package);
        unit->userUpdate().startVerification(package);
        QTest::qWait(50);
    }
    QVERIFY(clock.elapsed() < 30000);
}

void TestUserUpdate::data_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QByteArray>("data");
    for (const int device : {0, 1, 2, 3, 5}) {
        QTest::addRow("device %d", device) << device
                                           << QByteArray("UPD1") + char(device)
                + QByteArray("\x02"
                             "de/ORRERY_PACK.BIN");
    }
    for (const int device : {-1, 4, 6}) {
        QTest::addRow("no device %d", device) << device << QByteArray();
    }
}

void TestUserUpdate::data()
{
    QFETCH(int, device);
    QFETCH(QByteArray, data);
    OpenUnit unit;
    QCOMPARE(unit->userUpdate().data(device, QStringLiteral("de")), data);
    QCOMPARE(unit->journal().lines(QStringLiteral("/^update/")),
             QStringList(QStringLiteral("update data device %1 de").arg(device)));
}

void TestUserUpdate::refusedDataIsEmpty()
{
    OpenUnit unit;
    unit->userUpdate().refuseData(true);
    QVERIFY(unit->userUpdate().data(0, QStringLiteral("de")).isEmpty());
    unit->userUpdate().refuseData(false);
    QVERIFY(!unit->userUpdate().data(0, QStringLiteral("de")).isEmpty());
}

FACTORY_TEST_GUILESS_MAIN(TestUserUpdate)
#include "tst_userupdate.moc"
