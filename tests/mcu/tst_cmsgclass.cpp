#include "mcu/cmsgclass.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QSignalSpy>
#include <QtTest>

#include <thread>

class TestCMsgClass : public QObject
{
    Q_OBJECT

private slots:
    void rootPathIsTheLatestUsbStorage();
    void storageNewsArriveOnTheGraphicalThread();
    void versionsComeFromTheTable();
    void rebootReachesThePower();
    void beepAndUpdateReadyAreJournalled();
};

namespace
{

QString rootPath()
{
    QString path(QStringLiteral("not set"));
    CMsgClass::getInstance()->getDevRootPath(path);
    return path;
}

} // namespace

void TestCMsgClass::rootPathIsTheLatestUsbStorage()
{
    TestUnit unit;
    QSignalSpy spy(CMsgClass::getInstance(), &CMsgClass::sigDevRootPath);
    QCOMPARE(rootPath(), QString());
    unit.plug(QStringLiteral("usb1"));
    unit.plug(QStringLiteral("sd0")); // of another type: nobody hears of it
    unit.plug(QStringLiteral("usb0"));
    QCOMPARE(rootPath(), QStringLiteral("/media/usb0"));
    QString error;
    QVERIFY(unit.unit().storage().pull(QStringLiteral("sd0"), &error));
    QVERIFY(unit.unit().storage().pull(QStringLiteral("usb0"), &error));
    QVERIFY(unit.unit().storage().pull(QStringLiteral("usb1"), &error));
    QCOMPARE(rootPath(), QString());
    QCOMPARE(spy,
             QList<QVariantList>({{QStringLiteral("/media/usb1")},
                                  {QStringLiteral("/media/usb0")},
                                  {QStringLiteral("/media/usb1")},
                                  {QString()}}));
}

void TestCMsgClass::storageNewsArriveOnTheGraphicalThread()
{
    TestUnit unit;
    QThread *arrival = nullptr;
    connect(
        CMsgClass::getInstance(), &CMsgClass::sigDevRootPath, CMsgClass::getInstance(),
        [&arrival] { arrival = QThread::currentThread(); }, Qt::DirectConnection);
    std::thread plugger([&unit] {
        QString error;
        unit.unit().storage().plug(QStringLiteral("usb0"), QString(), &error);
    });
    plugger.join();
    QTRY_COMPARE(arrival, QThread::currentThread());
}

void TestCMsgClass::versionsComeFromTheTable()
{
    TestUnit unit;
    unit.unit().versions().setGps(QStringLiteral("G 9"));
    QCOMPARE(CMsgClass::getInstance()->getGpsVerInfo(), QStringLiteral("G 9"));
    // As in the table that a new unit starts with.
    QCOMPARE(CMsgClass::getInstance()->getBluetoothVersion(), QStringLiteral("BT 5.0.17"));
    QCOMPARE(CMsgClass::getInstance()->getAlsPdtInfo(), 171);
}

void TestCMsgClass::rebootReachesThePower()
{
    TestUnit unit;
    QSignalSpy spy(&unit.unit().mcu(), &hardware::Mcu::rebootRequested);
    CMsgClass::getInstance()->setSysReboot();
    QCOMPARE(spy.size(), 1);
    QCOMPARE(unit.journal(QStringLiteral("/^mcu /")), QStringList(QStringLiteral("mcu reboot")));
}

void TestCMsgClass::beepAndUpdateReadyAreJournalled()
{
    TestUnit unit;
    CMsgClass::getInstance()->playBeepTone(e_clickType(0));
    CMsgClass::getInstance()->setUpdateReadyState(true);
    CMsgClass::getInstance()->setUpdateReadyState(false);
    QCOMPARE(unit.journal(QStringLiteral("/^mcu /")),
             QStringList({QStringLiteral("mcu beep 0"), QStringLiteral("mcu update ready 1"),
                          QStringLiteral("mcu update ready 0")}));
}

FACTORY_TEST_MAIN(TestCMsgClass)
#include "tst_cmsgclass.moc"
