#include "setup/calcutelateval.h"

#include "support/testmain.h"

#include <QtTest>

#include <limits>

class TestCalcutelateVal : public QObject
{
    Q_OBJECT

private slots:
    void step_data();
    void step();
};

void TestCalcutelateVal::step_data()
{
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("current");
    QTest::addColumn<bool>("increase");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("result");
    const auto row = [](const char *name, int min, int max, int current, bool increase, int step,
                        int result) {
        QTest::newRow(name) << min << max << current << increase << step << result;
    };
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    row("up in the range", 0, 24, 12, true, 1, 13);
    row("down in the range", 0, 24, 12, false, 1, 11);
    row("up to the bound", 0, 24, 23, true, 1, 24);
    row("down to the bound", 0, 24, 1, false, 1, 0);
    row("up at the bound", 0, 24, 24, true, 1, 24);
    row("down at the bound", 0, 24, 0, false, 1, 0);
    row("up with exactly a step of room", 0, 24, 19, true, 5, 24);
    row("up with less than a step of room", 0, 24, 20, true, 5, 20);
    row("down with exactly a step of room", 0, 24, 5, false, 5, 0);
    row("down with less than a step of room", 0, 24, 4, false, 5, 4);
    row("above the range, up", 0, 24, 30, true, 1, 30);
    row("above the range, down", 0, 24, 30, false, 1, 29);
    row("below the range, up", 0, 24, -6, true, 1, -5);
    row("below the range, down", 0, 24, -6, false, 1, -6);
    row("an empty range, up", 7, 7, 7, true, 1, 7);
    row("an empty range, down", 7, 7, 7, false, 1, 7);
    row("the lowest integer, up", 0, 24, lowest, true, 1, lowest + 1);
    row("the lowest integer, down", 0, 24, lowest, false, 1, lowest);
    row("the highest integer, up", 0, 24, highest, true, 1, highest);
    row("the highest integer, down", -5, 24, highest, false, 1, highest - 1);
}

void TestCalcutelateVal::step()
{
    QFETCH(int, min);
    QFETCH(int, max);
    QFETCH(int, current);
    QFETCH(bool, increase);
    QFETCH(int, step);
    QTEST(CALCUTELATE_VAL(min, max, current, increase, step), "result");
}

FACTORY_TEST_GUILESS_MAIN(TestCalcutelateVal)
#include "tst_calcutelateval.moc"
