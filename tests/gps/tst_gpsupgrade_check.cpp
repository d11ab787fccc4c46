#include "gps/gpsfilecheck.h"

#include "gps/gpsserial.h"
#include "recordedpriority.h"
#include "upgradetest.h"

#include "support/testmain.h"

#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <stdio_ext.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <thread>

namespace
{

/// Who runs the check, instead of the host's user: by number 1 to 4, and these groups.
bool isAnotherUser = false;
QVector<gid_t> &userGroups()
{
    static QVector<gid_t> made;
    return made;
}
int groupsResult = 0;

} // namespace

// Ahead of the C library's: the test's user and groups are not those of every host.
extern "C" uid_t getuid() noexcept
{
    return isAnotherUser ? 1 : uid_t(syscall(SYS_getuid));
}

extern "C" uid_t geteuid() noexcept
{
    return isAnotherUser ? 2 : uid_t(syscall(SYS_geteuid));
}

extern "C" gid_t getgid() noexcept
{
    return isAnotherUser ? 3 : gid_t(syscall(SYS_getgid));
}

extern "C" gid_t getegid() noexcept
{
    return isAnotherUser ? 4 : gid_t(syscall(SYS_getegid));
}

extern "C" int getgroups(int size, gid_t *list) noexcept
{
    if (groupsResult < 0 || size < 0 || (size > 0 && size < groupsResult)) {
        errno = EINVAL;
        return -1;
    }
    std::copy_n(userGroups().constData(), size, list);
    return groupsResult;
}

class TestGpsUpgradeCheck : public QObject, private UpgradeTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void checks();
    void saysWhoChecks_data();
    void saysWhoChecks();
    void checksSayWhatTheyFind_data();
    void checksSayWhatTheyFind();

private:
    Conversation check(const QByteArray &bootloader, const QByteArray &firmware);
    static QString user(const QString &schedule, const QString &groups);
    QString expectedCheck() const;
};

void TestGpsUpgradeCheck::init()
{
    switchOn();
    userGroups() = {4, 27};
    groupsResult = 2;
    RecordedPriority::restart();
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
        isAnotherUser = true;
        std::thread worker([&] {
            result = checkGpsUpdateFile(bootloaderFile.constData(), firmwareFile.constData());
        });
        worker.join();
        isAnotherUser = false;
        return result;
    });
}

/// What the check is to print first.
QString TestGpsUpgradeCheck::user(const QString &schedule, const QString &groups)
{
    return QStringLiteral("%1\nuid=1, euid=2, gid=3, egid=4, groups %2\n").arg(schedule, groups);
}

/// What the check is to print, as somebody else's CRC and sum have it.
QString TestGpsUpgradeCheck::expectedCheck() const
{
    QStringList arguments;
    for (const char *file : {bootloader, firmware}) {
        const QString name = QString::fromLatin1(file);
        arguments << m_unit->path(name) << name;
    }
    QProcess script;
    script.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    script.start(QStringLiteral(EXPECTED_CHECK), arguments);
    script.waitForFinished();
    return user(QStringLiteral("sched_setscheduler with prio 50"), QStringLiteral(" 4 27"))
        + QString::fromUtf8(script.readAllStandardOutput());
}

void TestGpsUpgradeCheck::checks()
{
    make(firmware, "sections", "GNSS 9.8.7", 2600);
    std::setvbuf(stdout, nullptr, _IOFBF, BUFSIZ);
    const Conversation outcome = check(bootloader, firmware);
    QCOMPARE(outcome.result, 0);
    // From now on what is printed is not kept back.
    QCOMPARE(__fbufsize(stdout), std::size_t(1));
    const QByteArray measured = "check select() for 100us: ";
    const int end = outcome.output.indexOf(measured);
    QVERIFY2(end >= 0, outcome.output.constData());
    QCOMPARE(QString::fromUtf8(outcome.output.left(end)), expectedCheck());
    const QRegularExpression times(QStringLiteral("^min \\d+, max \\d+\n$"));
    const QByteArray rest = outcome.output.mid(end + measured.size());
    QVERIFY2(times.match(QString::fromUtf8(rest)).hasMatch(), rest.constData());
    // The calling thread, round robin, 50.
    QCOMPARE(RecordedPriority::asked(), QStringLiteral("0 2 50"));
}

void TestGpsUpgradeCheck::saysWhoChecks_data()
{
    QTest::addColumn<bool>("isRealTime");
    QTest::addColumn<int>("groups");
    QTest::addColumn<QString>("schedule");
    QTest::addColumn<int>("shown");
    const QString real = QStringLiteral("sched_setscheduler with prio 50");
    const QString failed =
        QStringLiteral("warning: sched_setscheduler failed: Operation not permitted");
    QTest::newRow("may not") << false << 1 << failed << 1;
    QTest::newRow("no groups") << true << 0 << real << 0;
    QTest::newRow("groups unknown") << true << -1 << real << 0;
    QTest::newRow("32 groups") << true << 32 << real << 32;
    QTest::newRow("33 groups") << true << 33 << real << 32;
}

void TestGpsUpgradeCheck::saysWhoChecks()
{
    QFETCH(bool, isRealTime);
    QFETCH(int, groups);
    QFETCH(QString, schedule);
    QFETCH(int, shown);
    RecordedPriority::restart(isRealTime);
    groupsResult = groups;
    userGroups().clear();
    QString text;
    for (int group = 100; group < 100 + groups; ++group) {
        userGroups().append(gid_t(group));
        text += group < 100 + shown ? QStringLiteral(" %1").arg(group) : QString();
    }
    QVERIFY(QFile::remove(m_unit->path(QString::fromLatin1(bootloader))));
    const QString output = QString::fromUtf8(check(bootloader, firmware).output);
    QVERIFY2(output.startsWith(user(schedule, text) + QStringLiteral("===== ")),
             qPrintable(output));
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

FACTORY_TEST_MAIN(TestGpsUpgradeCheck)
#include "tst_gpsupgrade_check.moc"
