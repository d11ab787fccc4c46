#include "gps/deadline.h"

#include "support/testunit.h"

#include <QtTest>

#include <sys/time.h>

class TestDeadline : public QObject
{
    Q_OBJECT

private slots:
    void passesBetween10And11Seconds();
};

namespace
{

double now()
{
    timeval time;
    gettimeofday(&time, nullptr);
    return time.tv_sec + time.tv_usec / 1e6;
}

} // namespace

void TestDeadline::passesBetween10And11Seconds()
{
    const TestUnit unit(50.0);
    for (int round = 0; round < 5; ++round) {
        const double before = now();
        const Deadline deadline;
        const double made = now();
        double lastTimeNotPassed = made;
        for (double asked = now(); !deadline.hasPassed(); asked = now()) {
            lastTimeNotPassed = asked;
        }
        // Both hold however late this thread is: readings before and after the ones that count.
        QVERIFY2(lastTimeNotPassed - made < 11, qPrintable(QString::number(lastTimeNotPassed)));
        QVERIFY(now() - before > 10);
    }
}

QTEST_MAIN(TestDeadline)
#include "tst_deadline.moc"
