#include "service/platformcontrol.h"

#include "support/packages.h"
#include "support/testmain.h"
#include "support/testunit.h"

#include <QSignalSpy>
#include <QThread>
#include <QtTest>

class TestPlatformControl : public QObject
{
    Q_OBJECT

private slots:
    void versionsOfAPackage();
    void answerIsQueuedAndComesWithTheResult();
    void answersWhileTheGraphicalThreadIsBlocked();
    void unitMayGoWhileAPackageIsVerified();
    void updateData();
    void softWareResetRestartsTheUnit();
};

namespace
{

const QString package = QStringLiteral("/media/usb0/ORRERY_PACK.BIN");

void plugPackage(TestUnit &unit, const QStringList &options = QStringList())
{
    makeUpdatePackage(unit.path(QStringLiteral("/sticks/usb0/ORRERY_PACK.BIN")), options);
    unit.plug(QStringLiteral("usb0"));
}

} // namespace

void TestPlatformControl::versionsOfAPackage()
{
    TestUnit unit;
    PlatformControl *platform = PlatformControl::getInstance();
    QCOMPARE(platform->getCustomerVer(package), QString());
    plugPackage(unit);
    QCOMPARE(platform->getCustomerVer(package), QStringLiteral("CUST 2.10.0"));
    QCOMPARE(platform->getSDKVer(package), QStringLiteral("SDK 7.4.1"));
}

void TestPlatformControl::answerIsQueuedAndComesWithTheResult()
{
    TestUnit unit(30);
    plugPackage(unit, {QStringLiteral("--corrupt")});
    QList<int> results;
    const QThread *thread = nullptr;
    const QObject here;
    connect(PlatformControl::getInstance(), &PlatformControl::ChecksumVerified, &here,
            [&](int result) {
                results.append(result);
                thread = QThread::currentThread();
            });
    PlatformControl::getInstance()->startVerifyChecksum(package);
    QVERIFY(results.isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(results, QList<int>({1}), 20000);
    QCOMPARE(thread, QThread::currentThread());
}

void TestPlatformControl::answersWhileTheGraphicalThreadIsBlocked()
{
    TestUnit unit(30);
    plugPackage(unit);
    const qint64 from = unit.unit().journal().end();
    PlatformControl::getInstance()->startVerifyChecksum(package);
    QVERIFY(unit.unit().journal().waitFor(
                hardware::JournalPattern(QStringLiteral("update verified 0 good")), from, 20000)
            >= 0);
}

void TestPlatformControl::unitMayGoWhileAPackageIsVerified()
{
    for (int round = 0; round < 20; ++round) {
        TestUnit unit(1500 + round * 100.0);
        plugPackage(unit);
        PlatformControl::getInstance()->startVerifyChecksum(package);
        QThread::msleep(1);
    }
}

void TestPlatformControl::updateData()
{
    TestUnit unit;
    PlatformControl *platform = PlatformControl::getInstance();
    QCOMPARE(platform->getUserUpdateData(PlatformControl::DevUsb1, QStringLiteral("fr")),
             QByteArray("UPD1\x03\x02"
                        "fr/ORRERY_PACK.BIN"));
    QCOMPARE(platform->getUserUpdateData(PlatformControl::DevAuto, QStringLiteral("fr")),
             QByteArray("UPD1\x05\x02"
                        "fr/ORRERY_PACK.BIN"));
    unit.unit().userUpdate().refuseData(true);
    QCOMPARE(platform->getUserUpdateData(PlatformControl::DevUsb1, QStringLiteral("fr")),
             QByteArray());
}

void TestPlatformControl::softWareResetRestartsTheUnit()
{
    TestUnit unit;
    QSignalSpy reboot(&unit.unit().mcu(), &hardware::Mcu::rebootRequested);
    PlatformControl::getInstance()->softWareReset();
    QCOMPARE(reboot.size(), 1);
    QCOMPARE(unit.journal(QStringLiteral("/^platform/")),
             QStringList(QStringLiteral("platform software reset")));
}

FACTORY_TEST_MAIN(TestPlatformControl)
#include "tst_platformcontrol.moc"
