#include "gps/gpsfilecheck.h"

#include "gps/gpsserial.h"
#include "upgradetest.h"

#include "support/testmain.h"

#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <sched.h>

#include <thread>

class TestGpsUpgradeCheck : public QObject, private UpgradeTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void checks();
    void checksSayWhatTheyFind_data();
    void checksSayWhatTheyFind();
    void checksOfFilesThatAreGone();

private:
    Conversation check(const QByteArray &bootloader, const QByteArray &firmware);
    QString expectedCheck() const;
};

void TestGpsUpgradeCheck::init()
{
    switchOn();
}

void TestGpsUpgradeCheck::cleanup()
{
    switchOff();
}

/// On a thread that keeps the real-time priority for itself.
Conversation TestGpsUpgradeCheck::check(const QByteArray &bootloaderFile,
                                        const QByteArray &firmwareFile)
{
    return converse([&] {
        int result = 0;
        std::thread worker([&] {
            result = checkGpsUpdateFile(bootloaderFile.constData(), firmwareFile.constData());
        });
        worker.join();
        return result;
    });
}

/// What the check is to print, as somebody else's CRC and sum have it.
QString TestGpsUpgradeCheck::expectedCheck() const
{
    QStringList arguments(QStringLiteral(EXPECTED_CHECK));
    for (const char *file : {bootloader, firmware}) {
        const QString name = QString::fromLatin1(file);
        arguments << m_unit->path(name) << name;
    }
    QProcess script;
    script.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    script.start(QStringLiteral("python3"), arguments);
    script.waitForFinished();
    return QString::fromUtf8(script.readAllStandardOutput());
}

void TestGpsUpgradeCheck::checks()
{
    make(firmware, "sections", "GNSS 9.8.7", 2600);
    const Conversation outcome = check(bootloader, firmware);
    QCOMPARE(outcome.result, 0);
    const QByteArray measured = "check select() for 100us: ";
    const int end = outcome.output.indexOf(measured);
    QVERIFY2(end >= 0, outcome.output.constData());
    QCOMPARE(QString::fromUtf8(outcome.output.left(end)), expectedCheck());
    const QRegularExpression times(QStringLiteral("^min \\d+, max \\d+\n$"));
    const QByteArray rest = outcome.output.mid(end + measured.size());
    QVERIFY2(times.match(QString::fromUtf8(rest)).hasMatch(), rest.constData());
    // The caller's own priority is what it was.
    QCOMPARE(sched_getscheduler(0), SCHED_OTHER);
}

void TestGpsUpgradeCheck::checksSayWhatTheyFind_data()
{
    QTest::addColumn<QByteArray>("spoiltFile");
    QTest::addColumn<QByteArray>("kind");
    for (const char *kind : {"bad-sum", "bad-header-crc", "bad-second-section", "size-0"}) {
        QTest::addRow("boot loader, %s", kind) << QByteArray(bootloader) << QByteArray(kind);
        QTest::addRow("firmware, %s", kind) << QByteArray(firmware) << QByteArray(kind);
    }
}

void TestGpsUpgradeCheck::checksSayWhatTheyFind()
{
    QFETCH(QByteArray, spoiltFile);
    QFETCH(QByteArray, kind);
    make(spoiltFile, kind.constData(), "", 0);
    use_select_wait = 7;
    const Conversation outcome = check(bootloader, firmware);
    QCOMPARE(outcome.result, -2);
    QCOMPARE(QString::fromUtf8(outcome.output), expectedCheck());
    // select() was not measured.
    QCOMPARE(use_select_wait, 7);
}

void TestGpsUpgradeCheck::checksOfFilesThatAreGone()
{
    QVERIFY(QFile::remove(m_unit->path(QString::fromLatin1(firmware))));
    const Conversation outcome = check(bootloader, firmware);
    QCOMPARE(outcome.result, -2);
    const QByteArray missing =
        "\n can't open this file or not exist!(errno=2:No such file or directory) \n";
    QVERIFY2(outcome.output.endsWith("checking file: " + QByteArray(firmware) + '\n' + missing
                                     + missing + "firmware file error!\n"),
             outcome.output.constData());
}

FACTORY_TEST_MAIN(TestGpsUpgradeCheck)
#include "tst_gpsupgrade_check.moc"
