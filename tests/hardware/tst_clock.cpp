#include "hardware/unit/clock.h"

#include "support/testmain.h"

#include <QElapsedTimer>
#include <QtTest>

#include <limits>

#include <csignal>
#include <sys/time.h>

using hardware::Clock;

class tst_Clock : public QObject
{
    Q_OBJECT

private slots:
    void theFactorIsOneByDefault();
    void hostMs_data();
    void hostMs();
    void sleep_data();
    void sleep();
    void aSignalDoesNotShortenASleep();
    void timePassesByTheFactorOfTheMoment();
    void copiesShowTheSameTime();
    void itIsTheHostsUntilTheFactorWasAnother();
};

void tst_Clock::theFactorIsOneByDefault()
{
    QCOMPARE(Clock().factor(), 1.0);
    QCOMPARE(Clock(2.5).factor(), 2.5);
}

void tst_Clock::hostMs_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("unitMs");
    QTest::addColumn<int>("hostMs");

    const int longest = std::numeric_limits<int>::max();
    QTest::newRow("factor 1 changes nothing") << 1.0 << 1234 << 1234;
    QTest::newRow("factor 1, longest") << 1.0 << longest << longest;
    QTest::newRow("ten times as fast") << 10.0 << 10000 << 1000;
    QTest::newRow("rounded down") << 100.0 << 1049 << 10;
    QTest::newRow("rounded up") << 100.0 << 1050 << 11;
    QTest::newRow("never nothing") << 1000.0 << 1 << 1;
    QTest::newRow("nothing stays nothing") << 1000.0 << 0 << 0;
    QTest::newRow("for ever stays for ever") << 1000.0 << -1 << -1;
    QTest::newRow("half as fast") << 0.5 << 100 << 200;
    QTest::newRow("slower than can be said") << 0.5 << longest << longest;
}

void tst_Clock::hostMs()
{
    QFETCH(double, factor);
    QFETCH(int, unitMs);

    QTEST(Clock(factor).hostMs(unitMs), "hostMs");
}

void tst_Clock::sleep_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<qint64>("unitMicroseconds");
    QTest::addColumn<int>("atLeastMs");
    QTest::addColumn<int>("lessThanMs");

    // The upper bounds are far off, for busy machines, and still below the unscaled times.
    QTest::newRow("factor 1") << 1.0 << qint64(30000) << 30 << 20000;
    QTest::newRow("a unit minute in 50 ms") << 1200.0 << qint64(60000000) << 50 << 20000;
    QTest::newRow("half as fast") << 0.5 << qint64(20000) << 40 << 20000;
    QTest::newRow("more than a host second") << 2.0 << qint64(2200000) << 1100 << 20000;
    QTest::newRow("nothing") << 1.0 << qint64(0) << 0 << 5000;
    QTest::newRow("negative") << 1.0 << qint64(-60000000) << 0 << 5000;
}

void tst_Clock::sleep()
{
    QFETCH(double, factor);
    QFETCH(qint64, unitMicroseconds);
    QFETCH(int, atLeastMs);
    QFETCH(int, lessThanMs);

    const Clock clock(factor);
    QElapsedTimer timer;
    timer.start();
    clock.sleep(unitMicroseconds);
    const qint64 elapsed = timer.nsecsElapsed() / 1000000;
    QVERIFY2(elapsed >= atLeastMs, qPrintable(QString::number(elapsed)));
    QVERIFY2(elapsed < lessThanMs, qPrintable(QString::number(elapsed)));
}

void tst_Clock::aSignalDoesNotShortenASleep()
{
    static volatile sig_atomic_t alarms = 0;
    const auto former = std::signal(SIGALRM, [](int) { alarms = alarms + 1; });
    const itimerval every5Ms = {{0, 5000}, {0, 5000}};
    setitimer(ITIMER_REAL, &every5Ms, nullptr);
    QElapsedTimer timer;
    timer.start();
    Clock().sleep(60000);
    const qint64 elapsed = timer.nsecsElapsed() / 1000000;
    const itimerval never = {};
    setitimer(ITIMER_REAL, &never, nullptr);
    std::signal(SIGALRM, former);
    QVERIFY(alarms > 0);
    QVERIFY2(elapsed >= 60, qPrintable(QString::number(elapsed)));
}

void tst_Clock::timePassesByTheFactorOfTheMoment()
{
    constexpr qint64 second = 1000000000;
    Clock clock(1000);
    Clock().sleep(20000);
    const qint64 fast = clock.elapsed();
    QVERIFY2(fast >= 20 * second, qPrintable(QString::number(fast)));
    clock.setFactor(0.001);
    QCOMPARE(clock.factor(), 0.001);
    QElapsedTimer timer;
    timer.start();
    const qint64 before = clock.elapsed();
    Clock().sleep(20000);
    const qint64 slow = clock.elapsed() - before;
    const qint64 host = timer.nsecsElapsed();
    QVERIFY(before >= fast); // what has passed stays, and is not counted anew by the new factor
    QVERIFY2(slow >= 20000 && slow <= host / 1000 + 1, qPrintable(QString::number(slow)));
}

void tst_Clock::copiesShowTheSameTime()
{
    Clock clock;
    const Clock copy = clock;
    clock.setFactor(50);
    QCOMPARE(copy.factor(), 50.0);
    QCOMPARE(copy.hostMs(5000), 100);
    QVERIFY(!copy.isHosts());
}

void tst_Clock::itIsTheHostsUntilTheFactorWasAnother()
{
    Clock clock;
    QVERIFY(clock.isHosts());
    clock.setFactor(1);
    QVERIFY(clock.isHosts());
    clock.setFactor(2);
    clock.setFactor(1);
    QVERIFY(!clock.isHosts());
    QVERIFY(!Clock(2).isHosts());
}

FACTORY_TEST_GUILESS_MAIN(tst_Clock)
#include "tst_clock.moc"
