#include "testsimulator.h"

#include "support/testmain.h"

#include <QtTest>

using namespace simulator;

/// The commands around light, vendor data and repetition.
class TestLightCommands : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
    void alsReportsAndTells();
    void alsCurveStartsAndEnds();
    void panelIsChangedAndTold();
    void keyLightIsTold();
    void vendorDataIsTold();
    void vendorDataRefuses();
    void dayNightIsSaidAndSet();
    void repeatRunsSoManyTimes();
    void repeatStopsWhereItFails();
};

void TestLightCommands::refuses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    QTest::newRow("als: letters") << "als dark"
                                  << "READING is a whole number from -2147483648 to 2147483647, "
                                     "not \"dark\"";
    QTest::newRow("als: too large") << "als 2147483648"
                                    << "READING is a whole number from -2147483648 to 2147483647, "
                                       "not \"2147483648\"";
    QTest::newRow("als-curve: no rate") << "als-curve"
                                        << "usage: als-curve RATE [SECONDS]";
    QTest::newRow("als-curve: too fast") << "als-curve 1001"
                                         << "RATE is a whole number from 0 to 1000, not \"1001\"";
    QTest::newRow("als-curve: no day") << "als-curve 1 0"
                                       << "SECONDS is a whole number from 1 to 86400, not \"0\"";
    QTest::newRow("panel: item") << "panel colour 1"
                                 << "ITEM is brightness, contrast, hue or saturation, not "
                                    "\"colour\"";
    QTest::newRow("panel: no value") << "panel hue"
                                     << "an ITEM needs a VALUE";
    QTest::newRow("panel: letters") << "panel hue blue"
                                    << "VALUE is a whole number from 0 to 360, not \"blue\"; "
                                       "\"wrong\" behind it allows others";
    QTest::newRow("panel: too bright")
        << "panel brightness 99"
        << "VALUE is a whole number from 0 to 24, not \"99\"; \"wrong\" behind it allows others";
    QTest::newRow("panel: too colourful")
        << "panel saturation 2"
        << "VALUE is a number from 0 to 1.99, not \"2\"; \"wrong\" behind it allows others";
    QTest::newRow("panel: another word") << "panel brightness 99 right"
                                         << "only \"wrong\" may follow here, not \"right\"";
    QTest::newRow("panel: saturation") << "panel saturation much"
                                       << "VALUE is a number for the saturation, not \"much\"";
    QTest::newRow("panel: endless saturation") << "panel saturation inf"
                                               << "VALUE is a number for the saturation, not "
                                                  "\"inf\"";
    QTest::newRow("vendor: letters") << "vendor first"
                                     << "POSITION is a whole number from 0 to 255, not \"first\"";
    QTest::newRow("vendor: unknown") << "vendor 77"
                                     << "nothing has position 77";
    QTest::newRow("daynight: no number")
        << "daynight day bright"
        << "VALUE is a whole number from -2147483648 to 2147483647, not \"bright\"";
    const QString usage =
        "usage: daynight, daynight day VALUE, daynight night VALUE, daynight automatic on|off";
    QTest::newRow("daynight: other word") << "daynight dusk 5" << usage;
    QTest::newRow("daynight: no switch") << "daynight automatic 1" << usage;
    QTest::newRow("repeat: no count") << "repeat often help"
                                      << "COUNT is a whole number from 1 to 100000, not \"often\"";
    QTest::newRow("repeat: not at all") << "repeat 0 help"
                                        << "COUNT is a whole number from 1 to 100000, not \"0\"";
    QTest::newRow("repeat: bare words") << "repeat 2 als 3"
                                        << "usage: repeat COUNT COMMAND";
}

void TestLightCommands::refuses()
{
    QFETCH(QString, line);
    QFETCH(QString, error);
    TestSimulator test;
    QCOMPARE(test.errorOf(line), error);
}

void TestLightCommands::alsReportsAndTells()
{
    TestSimulator test;
    QCOMPARE(test.run("als").lines.value(0), QString("reading none"));
    QCOMPARE(test.errorOf("als -5"), QString());
    QCOMPARE(test.run("als").lines,
             QStringList({"reading -5", "day threshold 300", "night threshold 100", "automatic 1",
                          "mode night"}));
    QCOMPARE(test.journal().lines("/^als reading/"), QStringList("als reading -5"));
}

void TestLightCommands::alsCurveStartsAndEnds()
{
    TestSimulator test;
    QCOMPARE(test.errorOf("als-curve 100"), QString());
    QTRY_VERIFY(test.run("als").lines.value(0) != "reading none");
    QCOMPARE(test.errorOf("als-curve 50 2"), QString());
    QCOMPARE(test.errorOf("als-curve 0"), QString());
    QCOMPARE(test.errorOf("als-curve 0"), QString());
    QCOMPARE(test.journal().lines("als curve"),
             QStringList({"als curve 100 240", "als curve 50 2", "als curve ends"}));
}

void TestLightCommands::panelIsChangedAndTold()
{
    TestSimulator test;
    QCOMPARE(test.errorOf("panel brightness 30 wrong"), QString());
    QCOMPARE(test.errorOf("panel contrast -1 wrong"), QString());
    QCOMPARE(test.errorOf("panel hue 359"), QString());
    QCOMPARE(test.errorOf("panel saturation 0.25"), QString());
    QCOMPARE(test.run("panel").lines,
             QStringList({"brightness 30", "contrast -1", "hue 359", "saturation 0.25"}));
}

void TestLightCommands::keyLightIsTold()
{
    TestSimulator test;
    test.simulator().unit().mcu().send(QByteArray::fromHex("FF66061584FE010264FF"));
    QCOMPARE(test.run("keylight").lines, QStringList({"red 1", "green 2", "blue 100"}));
}

void TestLightCommands::vendorDataIsTold()
{
    TestSimulator test;
    // A new unit's hue, 180, lowest byte first.
    QCOMPARE(test.run("vendor 3").lines, QStringList("B4 00 00 00"));
}

void TestLightCommands::vendorDataRefuses()
{
    TestSimulator test;
    hardware::VendorData &data = test.simulator().unit().vendorData();
    int offset = 0;
    int length = 0;
    QCOMPARE(test.errorOf("fault vendor look-up"), QString());
    QVERIFY(!data.find(2, &offset, &length));
    QVERIFY(data.write(256, QByteArray(4, '\1')));
    QCOMPARE(test.errorOf("fault vendor write"), QString());
    QVERIFY(data.find(2, &offset, &length));
    QVERIFY(!data.write(256, QByteArray(4, '\2')));
    QCOMPARE(test.errorOf("fault vendor none"), QString());
    QVERIFY(data.find(2, &offset, &length));
    QVERIFY(data.write(256, QByteArray(4, '\2')));
}

void TestLightCommands::dayNightIsSaidAndSet()
{
    TestSimulator test;
    for (const char *line : {"daynight day 70", "daynight night -5", "daynight automatic on"}) {
        QCOMPARE(test.errorOf(line), QString());
    }
    QCOMPARE(test.run("daynight").lines,
             (QStringList{"day threshold 70", "night threshold -5", "automatic 1", "mode day"}));
    QCOMPARE(test.errorOf("als -6"), QString());
    QCOMPARE(test.run("daynight").lines.last(), QString("mode night"));
    QCOMPARE(test.errorOf("daynight automatic off"), QString());
    QCOMPARE(test.errorOf("als 71"), QString());
    QCOMPARE(test.run("daynight").lines.mid(2), (QStringList{"automatic 0", "mode night"}));
}

void TestLightCommands::repeatRunsSoManyTimes()
{
    TestSimulator test;
    QCOMPARE(test.errorOf("repeat 3 'als 7'"), QString());
    QCOMPARE(test.journal().lines("als reading 7").size(), 3);
}

void TestLightCommands::repeatStopsWhereItFails()
{
    TestSimulator test;
    QCOMPARE(test.errorOf("repeat 3 'press idNone'"),
             QString("there is no button \"idNone\" on the screen"));
    QVERIFY(test.run("repeat 2 quit").endsSession);
}

FACTORY_TEST_MAIN(TestLightCommands)
#include "tst_lightcommands.moc"
