#include "unitlink/calls.h"

#include "dab/sim/simdabmodule.h"
#include "gps/cgpsmodule.h"
#include "hardware/unit/unit.h"
#include "kvappframework/module.h"
#include "kvappframework/modulemanager.h"
#include "mcu/cmsgclass.h"
#include "mcu/mcumsgmodule.h"
#include "service/calsdevice.h"
#include "service/comsysconfig.h"
#include "service/datadefault.h"
#include "service/datasavecontrol.h"
#include "service/displaycontrol.h"
#include "service/filedeviceparser.h"
#include "service/kvplatformcontrol.h"
#include "service/kvusbmanager.h"
#include "service/platformcontrol.h"
#include "service/sim/simmediaplaymodule.h"
#include "service/threadpool.h"
#include "service/usbcontrol.h"
#include "service/vendordatacontrol.h"
#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

#include <functional>

using unitlink::shown;
using Call = std::function<QString()>;
Q_DECLARE_METATYPE(Call)

/// Every call of the stand-ins: what the journal has of it, and what it does when it is to fail.
class TestCalls : public QObject
{
    Q_OBJECT

private slots:
    void call_data();
    void call();
};

namespace
{

QStringList &rows()
{
    static QStringList names;
    return names;
}

/// A call that tells the unit something: its result, if any, the first line that it journals, and
/// its result when it fails, of which the journal then has nothing else.
void told(const char *name, const Call &call, const QString &line,
          const QString &result = QString(), const QString &failure = QString())
{
    rows().append(QLatin1String(name));
    QTest::newRow(name) << call << line << result << QString() << failure;
}

/// A call that asks the unit something: its arguments, answer and answer when it fails, as the
/// journal shows them.
void asked(const char *name, const Call &call, const QString &arguments, const QString &answer,
           const QString &failure)
{
    const QString line = QStringLiteral("asked %1(%2) = ").arg(QLatin1String(name), arguments);
    rows().append(QLatin1String(name));
    QTest::newRow(name) << call << line + answer << answer << line + failure << failure;
}

/// For a call without a result.
template <typename Function> Call silent(Function function)
{
    return [function] {
        function();
        return QString();
    };
}

void addLightRows()
{
    const auto sensor = [] { return CALSDevice::getInstance(); };
    told("CALSDevice::autoDetectSwitch", silent([=] { sensor()->autoDetectSwitch(true); }),
         QStringLiteral("als automatic 1"));
    asked(
        "CALSDevice::getCirticalValue", [=] { return shown(sensor()->getCirticalValue(true)); },
        QStringLiteral("true"), QStringLiteral("300"), QStringLiteral("0"));
    told("CALSDevice::setCriticalValueAsDay", silent([=] { sensor()->setCriticalValueAsDay(9); }),
         QStringLiteral("als day threshold 9"));
    told("CALSDevice::setCriticalValueAsNight",
         silent([=] { sensor()->setCriticalValueAsNight(4); }),
         QStringLiteral("als night threshold 4"));
}

void addDisplayRows()
{
    const auto display = [] { return DisplayControl::getInstance(); };
    asked(
        "DisplayControl::panelBrightness", [=] { return shown(display()->panelBrightness()); },
        QString(), QStringLiteral("12"), QStringLiteral("0"));
    asked(
        "DisplayControl::panelContrast", [=] { return shown(display()->panelContrast()); },
        QString(), QStringLiteral("12"), QStringLiteral("0"));
    asked(
        "DisplayControl::panelHue", [=] { return shown(display()->panelHue()); }, QString(),
        QStringLiteral("180"), QStringLiteral("0"));
    asked(
        "DisplayControl::panelSaturation", [=] { return shown(display()->panelSaturation()); },
        QString(), QStringLiteral("1"), QStringLiteral("0"));
    told("DisplayControl::setPanelBrightness", silent([=] { display()->setPanelBrightness(3); }),
         QStringLiteral("panel brightness 3"));
    told("DisplayControl::setPanelContrast", silent([=] { display()->setPanelContrast(4); }),
         QStringLiteral("panel contrast 4"));
    told("DisplayControl::setPanelHue", silent([=] { display()->setPanelHue(5); }),
         QStringLiteral("panel hue 5"));
    told("DisplayControl::setPanelSaturation", silent([=] { display()->setPanelSaturation(0.25); }),
         QStringLiteral("panel saturation 0.25"));
}

void addModuleRows()
{
    const auto message = [] { return CMsgClass::getInstance(); };
    asked(
        "CMsgClass::getAlsPdtInfo", [=] { return shown(message()->getAlsPdtInfo()); }, QString(),
        QStringLiteral("171"), QStringLiteral("0"));
    asked(
        "CMsgClass::getBluetoothVersion", [=] { return shown(message()->getBluetoothVersion()); },
        QString(), QStringLiteral("\"BT 5.0.17\""), QStringLiteral("\"\""));
    asked(
        "CMsgClass::getGpsVerInfo", [=] { return shown(message()->getGpsVerInfo()); }, QString(),
        QStringLiteral("\"GNSS 1.04.2\""), QStringLiteral("\"\""));
    asked(
        "CMsgClass::getDevRootPath",
        [=] {
            QString path;
            message()->getDevRootPath(path);
            return shown(path);
        },
        QString(), QStringLiteral("\"/media/usb0\""), QStringLiteral("\"\""));
    told("CMsgClass::playBeepTone", silent([=] { message()->playBeepTone(e_clickType(0)); }),
         QStringLiteral("mcu beep 0"));
    told("CMsgClass::setSysReboot", silent([=] { message()->setSysReboot(); }),
         QStringLiteral("mcu reboot"));
    told("CMsgClass::setUpdateReadyState", silent([=] { message()->setUpdateReadyState(true); }),
         QStringLiteral("mcu update ready 1"));
    told(
        "McuMsgModule::sendMsgToMcu",
        [] {
            unsigned char bytes[] = {0xFF, 0x01};
            return shown(McuMsgModule::sendMsgToMcu(bytes, 2));
        },
        QStringLiteral("mcu FF 01"), QStringLiteral("2"), QStringLiteral("-1"));
    told("CGpsModule::clearGpsConfig", silent([] { CGpsModule::getInstance()->clearGpsConfig(); }),
         QStringLiteral("gps configuration cleared"));
    told("CGpsModule::stopWork", silent([] { CGpsModule::getInstance()->stopWork(); }),
         QStringLiteral("gps service stopped"));
    const auto dab = [] { return std::make_shared<SimDabModule>(); };
    asked(
        "DabModule::DAB_GetSdkVersion",
        [=] { return shown(dab()->getDabModule()->DAB_GetSdkVersion()); }, QString(),
        QStringLiteral("\"SDK 3.2.1\""), QStringLiteral("\"\""));
    asked(
        "DabModule::m_DAB_GetCurrentStatus",
        [=] { return shown(int(dab()->getDabModule()->m_DAB_GetCurrentStatus())); }, QString(),
        QStringLiteral("0"), QStringLiteral("0"));
    told(
        "DabModule::m_DAB_FwUpdate",
        [=] { return shown(dab()->getDabModule()->m_DAB_FwUpdate("/media/usb0")); },
        QStringLiteral("dab update /media/usb0/dab_firmware.bin"), QStringLiteral("0"),
        QStringLiteral("-1"));
    told("MediaplayModule::setUSBTesting",
         silent([] { SimMediaplayModule().getMediaplayModule()->setUSBTesting(true); }),
         QStringLiteral("mediaplay usb testing 1"));
    rows().append(QStringLiteral("ModuleManager::getModule"));
    QTest::newRow("ModuleManager::getModule")
        << Call([] {
               const auto found =
                   kvappframework::ModuleManager::self()->getModule(QStringLiteral("info"));
               return QString::fromLatin1(found ? "a module" : "none");
           })
        << QStringLiteral("asked ModuleManager::getModule(\"info\") = a module")
        << QStringLiteral("a module")
        << QStringLiteral("asked ModuleManager::getModule(\"info\") = none")
        << QStringLiteral("none");
}

void addStoreRows()
{
    asked(
        "ComSysConfig::getCaptureStatus",
        [] { return shown(ComSysConfig::getInstance()->getCaptureStatus()); }, QString(),
        QStringLiteral("true"), QStringLiteral("false"));
    told("ComSysConfig::setCaptureStatus",
         silent([] { ComSysConfig::getInstance()->setCaptureStatus(false); }),
         QStringLiteral("settings system/capture = false"));
    asked(
        "DataDefault::getDefault",
        [] { return shown(DataDefault::getDefault(QStringLiteral("setup/usbTestMode"))); },
        QStringLiteral("\"setup/usbTestMode\""),
        QStringLiteral("QVariant(QString, \"USB-IF Mode\")"), QStringLiteral("QVariant(Invalid)"));
    asked(
        "DataSaveControl::readSettingData",
        [] {
            return shown(DataSaveControl::readSettingData(QStringLiteral("capture"), 5,
                                                          QStringLiteral("system")));
        },
        QStringLiteral("\"capture\", QVariant(int, 5), \"system\""),
        QStringLiteral("QVariant(bool, true)"), QStringLiteral("QVariant(int, 5)"));
    told("DataSaveControl::saveSettingData", silent([] {
             DataSaveControl::saveSettingData(QStringLiteral("key"), 7, QStringLiteral("group"));
         }),
         QStringLiteral("settings group/key = 7"));
    asked(
        "VendorDataControl::getVendorPosOffset",
        [] {
            int offset = 0;
            int length = 0;
            return shown(VendorDataControl::getVendorPosOffset(VendorDataControl::VendorPos(2),
                                                               offset, length));
        },
        QStringLiteral("2"), QStringLiteral("0"), QStringLiteral("-1"));
    told(
        "VendorDataControl::saveVendorDataInt",
        [] {
            int value = 7;
            return shown(VendorDataControl::saveVendorDataInt(&value, 1, 256, 4));
        },
        QStringLiteral("vendor write 256 07 00 00 00"), QStringLiteral("0"), QStringLiteral("-1"));
    told(
        "VendorDataControl::saveVendorDataString",
        [] {
            char text[] = "AB";
            return shown(VendorDataControl::saveVendorDataString(text, 256, 2));
        },
        QStringLiteral("vendor write 256 41 42"), QStringLiteral("0"), QStringLiteral("-1"));
}

void addStorageRows()
{
    const auto parser = [] { return FileDeviceParser::getInstance(); };
    asked(
        "FileDeviceParser::getMountDeviceByType",
        [=] { return shown(parser()->getMountDeviceByType(FileDeviceParser::MediaType1)); },
        QStringLiteral("1"), QStringLiteral("(\"/media/usb0\")"), QStringLiteral("()"));
    told("FileDeviceParser::startParser",
         silent([=] { parser()->startParser(QStringLiteral("/media/usb0")); }),
         QStringLiteral("media scan /media/usb0"));
    const auto platform = [] { return PlatformControl::getInstance(); };
    const auto package = QStringLiteral("/media/usb0/none");
    asked(
        "PlatformControl::getCustomerVer",
        [=] { return shown(platform()->getCustomerVer(package)); },
        QStringLiteral("\"/media/usb0/none\""), QStringLiteral("\"\""), QStringLiteral("\"\""));
    asked(
        "PlatformControl::getSDKVer", [=] { return shown(platform()->getSDKVer(package)); },
        QStringLiteral("\"/media/usb0/none\""), QStringLiteral("\"\""), QStringLiteral("\"\""));
    told(
        "PlatformControl::getUserUpdateData",
        [=] {
            return shown(platform()
                             ->getUserUpdateData(PlatformControl::DevType(5), QStringLiteral("en"))
                             .isEmpty());
        },
        QStringLiteral("update data device 5 en"), QStringLiteral("false"), QStringLiteral("true"));
    told("PlatformControl::softWareReset", silent([=] { platform()->softWareReset(); }),
         QStringLiteral("platform software reset"));
    told("PlatformControl::startVerifyChecksum",
         silent([=] { platform()->startVerifyChecksum(package); }),
         QStringLiteral("update verify /media/usb0/none"));
    told("ThreadPool::addTask", silent([] { ThreadPool::getInstance()->addTask([] {}, "task"); }),
         QStringLiteral("threads start task"));
}

/// The unit's service that the test has made, without the journal's line of another look-up.
template <typename Service> Service *made()
{
    return unitlink::service<Service>([]() -> Service * { return nullptr; });
}

void addUsbRows()
{
    using kvplfctrl::KVPlatformControl;
    const auto control = [] { return UsbControl::getInstance(); };
    asked(
        "UsbControl::getHwCtrlId",
        [=] { return shown(control()->getHwCtrlId(QStringLiteral("/media/usb0"))); },
        QStringLiteral("\"/media/usb0\""), QStringLiteral("0"), QStringLiteral("-1"));
    asked(
        "UsbControl::getMountDevice", [=] { return shown(control()->getMountDevice()); }, QString(),
        QStringLiteral("(\"/media/usb0\")"), QStringLiteral("()"));
    told("UsbControl::setUsbBcMode", silent([=] { control()->setUsbBcMode(1, 2); }),
         QStringLiteral("usb port 1 SDP"));
    told("UsbControl::setUsbCertification", silent([=] { control()->setUsbCertification('T'); }),
         QStringLiteral("usb certification T"));
    told("UsbControl::setUsbTestMode",
         silent([=] { control()->setUsbTestMode(UsbControl::UsbTestMode(4)); }),
         QStringLiteral("usb test mode 4"));
    asked(
        "KVUsbManager::create",
        [] {
            return QString::fromLatin1(
                kv_usb::KVUsbManager::create("2.9") == nullptr ? "nullptr" : "an object");
        },
        QStringLiteral("\"2.9\""), QStringLiteral("an object"), QStringLiteral("nullptr"));
    asked(
        "KVUsbManager::getPortMode",
        [] { return shown(made<kv_usb::KVUsbManager>()->getPortMode(1)); }, QStringLiteral("1"),
        QStringLiteral("0"), QStringLiteral("-1"));
    asked(
        "KVUsbManager::getCertificationMode",
        [] { return shown(made<kv_usb::KVUsbManager>()->getCertificationMode()); }, QString(),
        QStringLiteral("79"), QStringLiteral("-1"));
    const auto ncm = [](int (KVPlatformControl::*start)()) {
        return [start] { return shown((made<KVPlatformControl>()->*start)()); };
    };
    const auto fine = QStringLiteral("0");
    const auto failure = QStringLiteral("-1");
    told("KVPlatformControl::startTcpTestClient", ncm(&KVPlatformControl::startTcpTestClient),
         QStringLiteral("ncm start tcp client"), fine, failure);
    told("KVPlatformControl::startTcpTestServer", ncm(&KVPlatformControl::startTcpTestServer),
         QStringLiteral("ncm start tcp server"), fine, failure);
    told("KVPlatformControl::startUdpTestClient100", ncm(&KVPlatformControl::startUdpTestClient100),
         QStringLiteral("ncm start udp client 100"), fine, failure);
    told("KVPlatformControl::startUdpTestClient50", ncm(&KVPlatformControl::startUdpTestClient50),
         QStringLiteral("ncm start udp client 50"), fine, failure);
    told("KVPlatformControl::startUdpTestServer", ncm(&KVPlatformControl::startUdpTestServer),
         QStringLiteral("ncm start udp server"), fine, failure);
    told("KVPlatformControl::stopTest", ncm(&KVPlatformControl::stopTest),
         QStringLiteral("ncm stop"), failure, failure);
}

} // namespace

void TestCalls::call_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("lineOfFailure");
    QTest::addColumn<QString>("failure");
    addLightRows();
    addDisplayRows();
    addModuleRows();
    addStoreRows();
    addStorageRows();
    addUsbRows();
    rows().sort();
    QCOMPARE(rows(), unitlink::callsThatCanFail());
}

void TestCalls::call()
{
    QFETCH(Call, call);
    QFETCH(QString, line);
    QFETCH(QString, result);
    QFETCH(QString, lineOfFailure);
    QFETCH(QString, failure);
    const QString name = QString::fromLatin1(QTest::currentDataTag());

    TestUnit unit;
    kv_usb::KVUsbManager::create("2.9");
    kvplfctrl::KVPlatformControl::GetInstance();
    hardware::Journal &journal = unit.unit().journal();
    unit.unit().settings().setValue(QStringLiteral("system/capture"), true);
    unit.plug(QStringLiteral("usb0"));
    const qint64 before = journal.end();
    QCOMPARE(call(), result);
    const QStringList lines = journal.lines(QString(), before, hardware::Journal::Everything);
    QVERIFY(!lines.isEmpty());
    QCOMPARE(lines.first(), line);

    unit.unit().callFaults().add(name, 1);
    const qint64 failing = journal.end();
    QCOMPARE(call(), failure);
    QStringList expected = {QStringLiteral("fault ") + name, lineOfFailure};
    expected.removeAll(QString());
    // What the call before has set off may go on meanwhile.
    const QRegularExpression ofThisCall(QStringLiteral("^(fault|asked) "));
    QCOMPARE(journal.lines(QString(), failing, hardware::Journal::Everything).filter(ofThisCall),
             expected);
}

FACTORY_TEST_MAIN(TestCalls)
#include "tst_calls.moc"
