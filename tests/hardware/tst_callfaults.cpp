#include "hardware/unit/callfaults.h"

#include "hardware/unit/journal.h"
#include "support/testmain.h"

#include <QtTest>

using hardware::CallFaults;
using hardware::Journal;

class TestCallFaults : public QObject
{
    Q_OBJECT

private slots:
    void theNumberedCallFailsOnce();
    void theBeginningOfTheTextIsEnough();
    void twoFaultsOfOneCallFollowEachOther();
    void fromThenOnItFailsUntilAllAreDropped();
    void aNameIsAWholeWord();
    void clearDropsAll();
};

void TestCallFaults::theNumberedCallFailsOnce()
{
    Journal journal;
    CallFaults faults(journal);
    QVERIFY(faults.isEmpty());
    faults.add(QStringLiteral("save"), 3);
    QVERIFY(!faults.isEmpty());

    QVERIFY(!faults.fails(QStringLiteral("save")));
    QVERIFY(!faults.fails(QStringLiteral("read")));
    QCOMPARE(faults.pending(), QStringList{QStringLiteral("2 save")});
    QVERIFY(!faults.fails(QStringLiteral("save")));
    QVERIFY(faults.fails(QStringLiteral("save")));
    QVERIFY(faults.isEmpty());
    QVERIFY(!faults.fails(QStringLiteral("save")));
    QCOMPARE(journal.lines(), QStringList{QStringLiteral("fault save")});
}

void TestCallFaults::theBeginningOfTheTextIsEnough()
{
    Journal journal;
    CallFaults faults(journal);
    faults.add(QStringLiteral("open /sys/"), 1);
    QVERIFY(!faults.fails(QStringLiteral("open /system")));
    QVERIFY(!faults.fails(QStringLiteral("reopen /sys/a")));
    QVERIFY(faults.fails(QStringLiteral("open /sys/a")));
}

void TestCallFaults::twoFaultsOfOneCallFollowEachOther()
{
    Journal journal;
    CallFaults faults(journal);
    faults.add(QStringLiteral("sync"), 1);
    faults.add(QStringLiteral("sync"), 1);
    QVERIFY(!faults.fails(QStringLiteral("cp")));
    QVERIFY(faults.fails(QStringLiteral("sync")));
    QVERIFY(faults.fails(QStringLiteral("sync")));
    QVERIFY(!faults.fails(QStringLiteral("sync")));
}

void TestCallFaults::fromThenOnItFailsUntilAllAreDropped()
{
    Journal journal;
    CallFaults faults(journal);
    faults.add(QStringLiteral("read"), 2, QStringLiteral("EIO"), CallFaults::FromThenOn);
    QString failure;
    QVERIFY(!faults.fails(QStringLiteral("read /a"), &failure));
    for (int time = 0; time < 3; ++time) {
        QCOMPARE(faults.pending(), QStringList{QStringLiteral("1 read EIO on")});
        failure.clear();
        QVERIFY(faults.fails(QStringLiteral("read /a"), &failure));
        QCOMPARE(failure, QStringLiteral("EIO"));
    }
    faults.clear();
    QVERIFY(!faults.fails(QStringLiteral("read /a")));
    const QString told = QStringLiteral("fault read /a EIO");
    QCOMPARE(journal.lines(), QStringList({told, told, told}));
}

void TestCallFaults::aNameIsAWholeWord()
{
    Journal journal;
    CallFaults faults(journal);
    faults.add(QStringLiteral("open"), 1);
    QVERIFY(!faults.fails(QStringLiteral("openat /dev/mem")));
    QVERIFY(faults.fails(QStringLiteral("open /dev/mem")));
}

void TestCallFaults::clearDropsAll()
{
    Journal journal;
    CallFaults faults(journal);
    faults.add(QStringLiteral("sync"), 1);
    faults.clear();
    QVERIFY(faults.isEmpty());
    QCOMPARE(faults.pending(), QStringList());
    QVERIFY(!faults.fails(QStringLiteral("sync")));
    QCOMPARE(journal.lines(), QStringList());
}

FACTORY_TEST_GUILESS_MAIN(TestCallFaults)
#include "tst_callfaults.moc"
