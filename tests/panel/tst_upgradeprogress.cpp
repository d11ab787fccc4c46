#include "panel/upgradeprogress.h"

#include "support/testmain.h"

#include <QtTest>

using panel::UpgradeProgress;

class TestUpgradeProgress : public QObject
{
    Q_OBJECT

private slots:
    void packagesBecomeBlocks_data();
    void packagesBecomeBlocks();
    void nothingGoesOn();
    void goesThroughTheStages();
    void neverGoesBack();
    void aSecondAttemptBeginsAnew();
    void unknownImagesAreNoEnd();
    void tellsHowFast();
};

void TestUpgradeProgress::packagesBecomeBlocks_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<int>("blocks");
    QTest::newRow("nothing") << qint64(0) << 0;
    QTest::newRow("a byte") << qint64(1) << 1;
    QTest::newRow("a block") << qint64(1024) << 1;
    QTest::newRow("a byte more") << qint64(1025) << 2;
    QTest::newRow("a firmware") << qint64(60032) << 59;
}

void TestUpgradeProgress::packagesBecomeBlocks()
{
    QFETCH(qint64, bytes);
    QTEST(UpgradeProgress::blocksOf(bytes), "blocks");
}

void TestUpgradeProgress::nothingGoesOn()
{
    UpgradeProgress progress;
    progress.setBlocks(5, 59);
    progress.take("run", 0, 1);
    QCOMPARE(progress.stage(), -1);
    QCOMPARE(progress.part(), 0.0);
    QVERIFY(progress.secondsLeft() < 0);
}

void TestUpgradeProgress::goesThroughTheStages()
{
    UpgradeProgress progress;
    progress.setBlocks(10, 100);
    double seconds = 0;
    double before = 0;
    int stage = 0;
    // The receiver restarts ahead of its ROM, into its boot loader, and at the end.
    const QStringList names = {"restart", "rom",      "bootloader", "restart",
                               "prompt",  "firmware", "restart"};
    const QList<int> stages = {0, 0, 1, 2, 2, 3, 4};
    for (const QString &name : names) {
        const int blocks = name == "bootloader" ? 5 : name == "firmware" ? 99 : 0;
        progress.take(name, blocks, ++seconds);
        QCOMPARE(progress.stage(), stages.at(stage++));
        QVERIFY(progress.part() >= before);
        before = progress.part();
    }
    QVERIFY2(before > 0.95 && before <= 1, qPrintable(QString::number(before)));
    progress.take("run", 100, ++seconds);
    QCOMPARE(progress.stage(), -1);
    QCOMPARE(progress.part(), 0.0);
}

void TestUpgradeProgress::neverGoesBack()
{
    UpgradeProgress progress;
    progress.setBlocks(10, 100);
    progress.take("firmware", 50, 1);
    const double half = progress.part();
    // The first answer may tell of the transfer before.
    progress.take("firmware", 10, 2);
    QCOMPARE(progress.part(), half);
    // A larger package turns up on another stick.
    progress.setBlocks(10, 1000);
    progress.take("firmware", 51, 3);
    QCOMPARE(progress.part(), half);
}

void TestUpgradeProgress::aSecondAttemptBeginsAnew()
{
    UpgradeProgress progress;
    progress.setBlocks(10, 100);
    progress.take("firmware", 50, 1);
    progress.take("rom", 0, 2);
    QCOMPARE(progress.stage(), 0);
    QCOMPARE(progress.part(), 0.0);
}

void TestUpgradeProgress::unknownImagesAreNoEnd()
{
    UpgradeProgress progress;
    progress.take("firmware", 3000, 1);
    progress.take("firmware", 3010, 3);
    QVERIFY(progress.part() >= 0 && progress.part() <= 1);
    QVERIFY(progress.secondsLeft() < 0);
}

void TestUpgradeProgress::tellsHowFast()
{
    UpgradeProgress progress;
    progress.setBlocks(10, 100);
    progress.take("firmware", 0, 10);
    QVERIFY(progress.secondsLeft() < 0);
    progress.take("firmware", 1, 10.5); // too early to tell
    QCOMPARE(progress.blocksPerSecond(), 0.0);
    progress.take("firmware", 20, 12);
    QCOMPARE(progress.blocksPerSecond(), 10.0);
    // 80 blocks of the image, and the restart.
    QVERIFY2(progress.secondsLeft() >= 8 && progress.secondsLeft() < 9,
             qPrintable(QString::number(progress.secondsLeft())));
}

FACTORY_TEST_MAIN(TestUpgradeProgress)
#include "tst_upgradeprogress.moc"
