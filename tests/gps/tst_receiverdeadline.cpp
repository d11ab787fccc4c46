#include "gps/receiverdeadline.h"

#include "conversation.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

class TestReceiverDeadline : public QObject
{
    Q_OBJECT

private slots:
    void passesBetween10And11Seconds();
};

void TestReceiverDeadline::passesBetween10And11Seconds()
{
    const TestUnit unit(50.0);
    for (int round = 0; round < 5; ++round) {
        const double before = unitTime();
        const ReceiverDeadline deadline;
        const double made = unitTime();
        double lastTimeNotPassed = made;
        for (double asked = unitTime(); !deadline.hasPassed(); asked = unitTime()) {
            lastTimeNotPassed = asked;
        }
        // Both hold however late this thread is: readings before and after the ones that count.
        QVERIFY2(lastTimeNotPassed - made < 11, qPrintable(QString::number(lastTimeNotPassed)));
        QVERIFY(unitTime() - before > 10);
    }
}

FACTORY_TEST_MAIN(TestReceiverDeadline)
#include "tst_receiverdeadline.moc"
