#include "simulator/console/nearest.h"

#include "support/testmain.h"

#include <QtTest>

using namespace simulator;

class TestNearest : public QObject
{
    Q_OBJECT

private slots:
    void distance_data();
    void distance();
    void hint_data();
    void hint();
};

void TestNearest::distance_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    QTest::addColumn<int>("distance");
    QTest::newRow("same") << "usbtest"
                          << "usbtest" << 0;
    QTest::newRow("other case") << "UsbTest"
                                << "usbtEst" << 0;
    QTest::newRow("letter missing") << "usbtst"
                                    << "usbtest" << 1;
    QTest::newRow("letter too many") << "usbtestt"
                                     << "usbtest" << 1;
    QTest::newRow("other letter") << "usbtezt"
                                  << "usbtest" << 1;
    QTest::newRow("letters exchanged") << "ubstest"
                                       << "usbtest" << 2;
    QTest::newRow("classic") << "kitten"
                             << "sitting" << 3;
    QTest::newRow("nothing and something") << ""
                                           << "abc" << 3;
    QTest::newRow("beginning") << "ab"
                               << "abcde" << 3;
}

void TestNearest::distance()
{
    QFETCH(QString, one);
    QFETCH(QString, other);
    QFETCH(int, distance);
    QCOMPARE(editDistance(one, other), distance);
    QCOMPARE(editDistance(other, one), distance);
}

void TestNearest::hint_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("hint");
    QTest::newRow("one") << "usbtst"
                         << "; near: usbtest";
    QTest::newRow("nearest first") << "usbteye"
                                   << "; near: usbeye, usbtest";
    QTest::newRow("three at the most") << "item3"
                                       << "; near: item1, item2, item31";
    QTest::newRow("none") << "idNone"
                          << "";
    QTest::newRow("short word, one letter") << "gpx"
                                            << "; near: gps";
    QTest::newRow("short word, two letters") << "gxx"
                                             << "";
    QTest::newRow("quoted") << "Test Mod"
                            << "; near: \"Test Mode\"";
    QTest::newRow("each once") << "twic"
                               << "; near: twice";
}

void TestNearest::hint()
{
    QFETCH(QString, word);
    QTEST(nearHint(word,
                   {"usbtest", "usbeye", "gps", "item1", "item2", "item31", "item4", "Test Mode",
                    "twice", "twice"}),
          "hint");
}

FACTORY_TEST_GUILESS_MAIN(TestNearest)
#include "tst_nearest.moc"
