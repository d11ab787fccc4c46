#include "simulator/commands/allcommands.h"

#include "testsimulator.h"

#include "support/testmain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

class TestStateCommands : public QObject
{
    Q_OBJECT

private slots:
    void devicesComeInTheirOrder();
    void tellsWhatWasSet_data();
    void tellsWhatWasSet();
    void tellsWhatLiesOnAStick();
    void tellsWhetherTheLightFollowsADay();
    void tellsTheSessionsFile();
    void tellsTheSpeed();
    void tellsTheLanguage();
    void tellsOfNcmTests();
    void answersWithoutTheScreen();
    void refusesOtherForms();
};

namespace
{

QJsonObject object(const QString &line)
{
    return QJsonDocument::fromJson(line.toUtf8()).object();
}

/// What is told of a device, without its name.
QJsonObject stateOf(TestSimulator &unit, const QString &device)
{
    const QStringList lines = unit.run("state --json").lines;
    for (const QString &line : lines) {
        QJsonObject state = object(line);
        if (state.take("device") == device) {
            return state;
        }
    }
    return QJsonObject();
}

} // namespace

void TestStateCommands::devicesComeInTheirOrder()
{
    TestSimulator unit;
    QStringList devices;
    const QStringList lines = unit.run("state --json").lines;
    for (const QString &line : lines) {
        devices.append(object(line).value("device").toString());
    }
    QCOMPARE(
        devices,
        (QStringList{"unit", "panel", "keylight", "light", "storage", "usb", "phy", "memory", "ncm",
                     "vendor", "settings", "versions", "receiver", "dab", "faults", "program"}));
}

void TestStateCommands::tellsWhatWasSet_data()
{
    QTest::addColumn<QStringList>("commands");
    QTest::addColumn<QString>("state");
    QTest::newRow("panel") << QStringList{"panel brightness 3", "panel contrast 4", "panel hue 5",
                                          "panel saturation 0.25"}
                           << R"json({"brightness":3,"contrast":4,"hue":5,"saturation":0.25})json";
    QTest::newRow("light") << QStringList{"daynight day 70", "daynight night 20",
                                          "daynight automatic on", "als 10"}
                           << R"json({"reading":10,"dayThreshold":70,"nightThreshold":20,
                                  "automatic":true,"mode":"night","curve":false})json";
    QTest::newRow("light: no reading")
        << QStringList{"daynight day 70", "daynight night 20", "daynight automatic off"}
        << R"json({"reading":null,"dayThreshold":70,"nightThreshold":20,
                                   "automatic":false,"mode":"day","curve":false})json";
    QTest::newRow("storage") << QStringList{"plug usb1", "full sd0 on", "write-protect usb0 on",
                                            "slow usb1 5000"}
                             << R"json({"slots":[
              {"name":"usb0","mediaType":1,"controller":0,"mountRoot":"/media/usb0","files":[],"plugged":false,"full":false,"writeProtected":true,"bytesPerSecond":0},
              {"name":"usb1","mediaType":1,"controller":1,"mountRoot":"/media/usb1","files":[],"plugged":true,"full":false,"writeProtected":false,"bytesPerSecond":5000},
              {"name":"sd0","mediaType":2,"controller":0,"mountRoot":"/media/sd0","files":[],"plugged":false,"full":true,"writeProtected":false,"bytesPerSecond":0},
              {"name":"sd1","mediaType":2,"controller":1,"mountRoot":"/media/sd1","files":[],"plugged":false,"full":false,"writeProtected":false,"bytesPerSecond":0}]})json";
    QTest::newRow("usb") << QStringList{"usb 0 SDP", "usb 1 DCP", "usb certification T"}
                         << R"json({"modes":[2,1],"certification":"T"})json";
    QTest::newRow("phy") << QStringList{"memory phySwing 7F7F7F5F", "memory testMode1 9"}
                         << R"json({"role":"host","logoTest":false,"ports":[
              {"speed":"high speed","testMode":"0 (none)","swing":"+31","disconnectLevel":16},
              {"speed":"high speed","testMode":"9 (test J, high speed)","swing":"-31","disconnectLevel":16}]})json";
    QTest::newRow("settings") << QStringList{"setting a/b 5", "setting c 'two \"words\"'"}
                              << R"json({"values":{"a/b":"5","c":"two \"words\""}})json";
    QTest::newRow("versions") << QStringList{"version gps 'G 2'"}
                              << R"json({"values":{"gps":"G 2","bluetooth":"BT 5.0.17",
                                     "alsProduct":"171","dabSdk":"SDK 3.2.1"}})json";
    QTest::newRow("receiver")
        << QStringList()
        << R"json({"state":"runs GNSS 1.04.2, 230400 baud","stage":"run","blocks":0,"wire":false})json";
    QTest::newRow("dab") << QStringList{"dab 9"} << R"json({"status":9,"progress":0})json";
    QTest::newRow("faults") << QStringList{"fault dab stall 20", "fault call \"system sync\" 2",
                                           "fault receiver no-yc"}
                            << R"json({"present":{"call":["2 system sync"],"dab":["stall 20"],
                                   "memory":[],"ncm":[],"receiver":["no-yc"],"storage":[],
                                   "update":[],"vendor":[]}})json";
}

void TestStateCommands::tellsWhatWasSet()
{
    QFETCH(QStringList, commands);
    QFETCH(QString, state);
    TestSimulator unit;
    for (const QString &command : commands) {
        QCOMPARE(unit.errorOf(command), QString());
    }
    const QJsonObject told = stateOf(unit, QString(QTest::currentDataTag()).section(':', 0, 0));
    QVERIFY(!told.isEmpty());
    QCOMPARE(QJsonDocument(told).toJson(), QJsonDocument(object(state)).toJson());
}

void TestStateCommands::tellsWhatLiesOnAStick()
{
    TestSimulator unit;
    QTemporaryDir stick;
    QVERIFY(QDir(stick.path()).mkpath("folder"));
    for (const char *name : {"b.bin", "a.txt", "folder/c"}) {
        QFile file(stick.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(name) > 0);
    }
    QCOMPARE(unit.errorOf("plug sd0 " + stick.path()), QString());
    const QJsonArray all = stateOf(unit, "storage").value("slots").toArray();
    QCOMPARE(all.at(2).toObject().value("files").toArray(),
             QJsonArray({QJsonObject({{"name", "a.txt"}, {"size", 5}}),
                         QJsonObject({{"name", "b.bin"}, {"size", 5}})}));
    QCOMPARE(all.at(0).toObject().value("files").toArray(), QJsonArray());
}

void TestStateCommands::tellsWhetherTheLightFollowsADay()
{
    TestSimulator unit;
    QCOMPARE(unit.errorOf("als-curve 1"), QString());
    QCOMPARE(stateOf(unit, "light").value("curve"), QJsonValue(true));
    QCOMPARE(unit.errorOf("als-curve 0"), QString());
    QCOMPARE(stateOf(unit, "light").value("curve"), QJsonValue(false));
}

void TestStateCommands::tellsTheSessionsFile()
{
    TestSimulator unit;
    QCOMPARE(stateOf(unit, "program").value("recording"), QJsonValue(QString()));
    QTemporaryDir folder;
    const QString file = folder.filePath("session.txt");
    QCOMPARE(unit.errorOf("record " + file), QString());
    QCOMPARE(stateOf(unit, "program").value("recording"), QJsonValue(file));
}

void TestStateCommands::tellsTheSpeed()
{
    TestSimulator unit(2.5);
    QCOMPARE(stateOf(unit, "unit"), QJsonObject({{"speed", 2.5}, {"openFiles", QJsonArray()}}));
    unit.simulator().unit().mcu().send(QByteArray::fromHex("FF66061584FE0A141EFF"));
    QCOMPARE(stateOf(unit, "keylight"), QJsonObject({{"red", 10}, {"green", 20}, {"blue", 30}}));
    QCOMPARE(unit.errorOf("vendor 2 ABCD"), QString());
    QCOMPARE(stateOf(unit, "vendor").value("items").toArray().at(1).toObject(),
             QJsonObject({{"position", 2}, {"name", "panelBrightness"}, {"bytes", "ABCD0000"}}));
    QCOMPARE(unit.errorOf("memory-fill A5A5A5A5"), QString());
    const QJsonObject registers = stateOf(unit, "memory").value("registers").toObject();
    QCOMPARE(registers.size(), unit.run("memory").lines.size());
    QCOMPARE(registers.value("phySwing"), QJsonValue("A5A5A5A5"));
}

void TestStateCommands::tellsTheLanguage()
{
    TestSimulator unit;
    QCOMPARE(stateOf(unit, "program").value("language"), QJsonValue("en"));
}

void TestStateCommands::tellsOfNcmTests()
{
    TestSimulator unit;
    QCOMPARE(stateOf(unit, "ncm").value("running"), QJsonValue(false));
    QVERIFY(unit.simulator().unit().ncmTest().start(hardware::NcmTest::UdpClient50));
    QCOMPARE(stateOf(unit, "ncm").value("running"), QJsonValue(true));
    QTRY_VERIFY_WITH_TIMEOUT(stateOf(unit, "ncm").value("bytesReceived").toDouble() > 0, 20000);
    unit.simulator().unit().ncmTest().stop();
    const QJsonObject ended = stateOf(unit, "ncm");
    QVERIFY(ended.value("bytesSent").toDouble() > 0 && ended.value("seconds").toDouble() > 0);
    QCOMPARE(ended.value("running"), QJsonValue(false));
}

/// The graphical thread waits here, as while a page blocks it.
void TestStateCommands::answersWithoutTheScreen()
{
    TestSimulator unit;
    QStringList lines;
    const QScopedPointer<QThread> thread(
        QThread::create([&] { lines = unit.run("state --json").lines; }));
    thread->start();
    QVERIFY(thread->wait(20000));
    QVERIFY(!lines.isEmpty());
}

void TestStateCommands::refusesOtherForms()
{
    TestSimulator unit;
    QCOMPARE(unit.errorOf("state"), QString("usage: state --json"));
    QCOMPARE(unit.errorOf("state --xml"), QString("usage: state --json"));
}

FACTORY_TEST_MAIN(TestStateCommands)
#include "tst_statecommands.moc"
