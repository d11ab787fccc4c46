#include "usbtest/testpattern.h"

#include "support/testmain.h"

#include <QtTest>

class TestTestPattern : public QObject
{
    Q_OBJECT

private slots:
    void codes_data();
    void codes();
};

void TestTestPattern::codes_data()
{
    QTest::addColumn<int>("pattern");
    QTest::addColumn<unsigned int>("highSpeed");
    QTest::addColumn<unsigned int>("fullSpeed");
    QTest::newRow("eye diagram") << 0 << 1u << 4u;
    QTest::newRow("J") << 1 << 9u << 11u;
    QTest::newRow("K") << 2 << 10u << 12u;
    QTest::newRow("SE0") << 3 << 7u << 7u;
    QTest::newRow("none") << 4 << 0u << 0u;
    QTest::newRow("beyond") << 5 << 0u << 0u;
    QTest::newRow("before") << -1 << 0u << 0u;
}

void TestTestPattern::codes()
{
    QFETCH(int, pattern);
    QFETCH(unsigned int, highSpeed);
    QFETCH(unsigned int, fullSpeed);
    QCOMPARE(testpattern::code(pattern, true), highSpeed);
    QCOMPARE(testpattern::code(pattern, false), fullSpeed);
}

FACTORY_TEST_GUILESS_MAIN(TestTestPattern)
#include "tst_testpattern.moc"
