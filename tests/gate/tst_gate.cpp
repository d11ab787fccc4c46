#include "gate/gate.h"

#include "probemodule.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

#include <atomic>
#include <cerrno>
#include <climits>
#include <thread>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

using hardware::Gate;

namespace
{

QByteArray encoded(const QString &path)
{
    return QFile::encodeName(path);
}

struct stat statusOf(const QString &path)
{
    struct stat status = {};
    stat(encoded(path).constData(), &status);
    return status;
}

int openDescriptors()
{
    return int(QDir(QStringLiteral("/proc/self/fd")).count());
}

bool isSame(const timespec &left, const timespec &right)
{
    return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

} // namespace

class TestGate : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void aCallLeadsIntoTheUnit_data() { addProbeRows(); }
    void aCallLeadsIntoTheUnit();
    void aCallElsewherePassesThrough_data() { addProbeRows(); }
    void aCallElsewherePassesThrough();
    void aRelativeCallPassesThrough_data() { addProbeRows(); }
    void aRelativeCallPassesThrough();
    void withoutAGateTheHostAnswers_data() { addProbeRows(); }
    void withoutAGateTheHostAnswers();
    void aPathOutOfTheUnitIsDenied_data() { addProbeRows(); }
    void aPathOutOfTheUnitIsDenied();
    void aSecondPathOutOfTheUnitIsDenied();
    void aPathThatIsTooLongIsRefused_data() { addProbeRows(); }
    void aPathThatIsTooLongIsRefused();
    void aPathOfTheUnitsFolderPassesThrough();
    void dotsAreTakenByTheText();
    void everyPathOfTheTableIsLed_data();
    void everyPathOfTheTableIsLed();
    void errnoIsKept();
    void noPathIsTheHostsError();
    void anotherGateLeadsToItsOwnUnit();
    void eightThreadsPassTheGate();

private:
    /// The file, folder or name that a call of that kind works on, made below \a folder.
    static void prepare(ProbeCall::Kind kind, const QString &folder);
    /// Whether the call did its work below \a folder.
    static void check(const ProbeCall &call, const QString &folder);
    static int run(const ProbeCall &call, const QString &folder);

    QString inUnit() const { return m_unit->path(m_area); }
    QString outside() const { return m_unit->beside(QStringLiteral("host")) + m_area; }

    // The unit of the tests with hundreds of rows, and a place in it that each row has to itself.
    QScopedPointer<OpenUnit> m_unit;
    QString m_area;
};

void TestGate::initTestCase()
{
    QVERIFY2(!QFileInfo::exists(QStringLiteral("/media/flash")),
             "The tests need a host without /media/flash.");
    umask(022);
    m_unit.reset(new OpenUnit);
}

void TestGate::init()
{
    static int count = 0;
    m_area = QStringLiteral("/media/flash/area%1").arg(++count);
}

void TestGate::cleanupTestCase()
{
    m_unit.reset();
}

void TestGate::prepare(ProbeCall::Kind kind, const QString &folder)
{
    if (kind == ProbeCall::Enters || kind == ProbeCall::RemovesFolder) {
        QVERIFY(QDir().mkpath(folder + QStringLiteral("/known")));
    } else if (kind == ProbeCall::Makes) {
        QVERIFY(QDir().mkpath(folder));
    } else {
        writeFile(folder + QStringLiteral("/known"), "known");
    }
}

int TestGate::run(const ProbeCall &call, const QString &folder)
{
    const QByteArray known = encoded(folder + QStringLiteral("/known"));
    const QByteArray other = encoded(folder + QStringLiteral("/other"));
    return call.run(known.constData(), other.constData());
}

void TestGate::check(const ProbeCall &call, const QString &folder)
{
    const QString known = folder + QStringLiteral("/known");
    const QString other = folder + QStringLiteral("/other");
    const QByteArray name = call.name;
    switch (call.kind) {
    case ProbeCall::Reads:
    case ProbeCall::Enters:
        break;
    case ProbeCall::Makes:
        QVERIFY(QFileInfo::exists(known));
        if (!name.startsWith("fopen")) {
            QCOMPARE(int(statusOf(known).st_mode & 0777), name.startsWith("mkdir") ? 0750 : 0640);
        }
        break;
    case ProbeCall::Changes:
        if (name.startsWith("truncate")) {
            QCOMPARE(QFileInfo(known).size(), qint64(1));
        } else if (name.contains("chmod")) {
            QCOMPARE(int(statusOf(known).st_mode & 0777), 0400);
        } else if (name.startsWith("utime")) {
            QCOMPARE(qint64(statusOf(known).st_mtim.tv_sec), qint64(1000));
        }
        break;
    case ProbeCall::Removes:
    case ProbeCall::RemovesFolder:
        QVERIFY(!QFileInfo::exists(known));
        break;
    case ProbeCall::Joins:
        if (name.startsWith("symlink")) {
            QVERIFY(QFileInfo(other).isSymLink());
        } else {
            QCOMPARE(QFileInfo::exists(known), !name.startsWith("rename"));
        }
        break;
    }
}

void TestGate::aCallLeadsIntoTheUnit()
{
    QFETCH(QByteArray, module);
    QFETCH(int, call);

    const ProbeCall &probe = probeOf(module).calls[call];
    prepare(probe.kind, inUnit());
    const timespec before = statusOf(inUnit() + QStringLiteral("/known")).st_ctim;
    if (probe.kind == ProbeCall::Changes) {
        usleep(20000); // past the grain of the file system's clock
    }
    int result = -1;
    {
        const Gate gate(**m_unit);
        result = run(probe, m_area);
    }
    QCOMPARE(result, 0);
    check(probe, inUnit());
    if (probe.kind == ProbeCall::Changes) {
        QVERIFY(!isSame(statusOf(inUnit() + QStringLiteral("/known")).st_ctim, before));
    }
    if (probe.kind == ProbeCall::Joins) {
        QCOMPARE(readFile(inUnit() + QStringLiteral("/other")), QByteArray("known"));
    }
}

void TestGate::aCallElsewherePassesThrough()
{
    QFETCH(QByteArray, module);
    QFETCH(int, call);

    const ProbeCall &probe = probeOf(module).calls[call];
    prepare(probe.kind, outside());
    const Gate gate(**m_unit);
    QCOMPARE(run(probe, outside()), 0);
    check(probe, outside());
}

void TestGate::aRelativeCallPassesThrough()
{
    QFETCH(QByteArray, module);
    QFETCH(int, call);

    const ProbeCall &probe = probeOf(module).calls[call];
    prepare(probe.kind, outside());
    const Gate gate(**m_unit);
    const QString former = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_unit->beside(QStringLiteral("host"))));
    const int result = run(probe, m_area.mid(1));
    QVERIFY(QDir::setCurrent(former));
    QCOMPARE(result, 0);
    check(probe, outside());
}

void TestGate::withoutAGateTheHostAnswers()
{
    QFETCH(QByteArray, module);
    QFETCH(int, call);

    const ProbeCall &probe = probeOf(module).calls[call];
    prepare(probe.kind, inUnit());
    QCOMPARE(run(probe, m_area), ENOENT);
}

void TestGate::aPathOutOfTheUnitIsDenied()
{
    QFETCH(QByteArray, module);
    QFETCH(int, call);

    const ProbeCall &probe = probeOf(module).calls[call];
    prepare(probe.kind, outside());
    const bool wasThere = QFileInfo::exists(outside() + QStringLiteral("/known"));
    const int descriptors = openDescriptors();
    const Gate gate(**m_unit);
    QCOMPARE(run(probe, QStringLiteral("/media/flash/../..") + outside()), EACCES);
    QCOMPARE(openDescriptors(), descriptors);
    QCOMPARE(QFileInfo::exists(outside() + QStringLiteral("/known")), wasThere);
    QVERIFY(!QFileInfo::exists(outside() + QStringLiteral("/other")));
}

void TestGate::aSecondPathOutOfTheUnitIsDenied()
{
    const GateProbe &probe = probeOf("gateprobe");
    for (std::size_t i = 0; i < probe.count; ++i) {
        const ProbeCall &call = probe.calls[i];
        if (call.kind != ProbeCall::Joins) {
            continue;
        }
        OpenUnit unit;
        writeFile(unit.path(QStringLiteral("/media/flash/known")), "known");
        const QByteArray other = "/media/.." + encoded(unit.beside(QStringLiteral("other")));
        const Gate gate(*unit);
        QVERIFY2(call.run("/media/flash/known", other.constData()) == EACCES, call.name);
        QVERIFY2(!QFileInfo::exists(unit.beside(QStringLiteral("other"))), call.name);
    }
}

void TestGate::aPathThatIsTooLongIsRefused()
{
    QFETCH(QByteArray, module);
    QFETCH(int, call);

    const ProbeCall &probe = probeOf(module).calls[call];
    const Gate gate(**m_unit);
    // Short enough for the host, but not with the unit's folder in front.
    const QByteArray path = "/media" + QByteArray("/a").repeated((PATH_MAX - 10) / 2);
    QVERIFY(path.size() < PATH_MAX);
    QCOMPARE(probe.run(path.constData(), path.constData()), ENAMETOOLONG);
}

void TestGate::aPathOfTheUnitsFolderPassesThrough()
{
    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/media/flash/known")), "known");
    const Gate gate(*unit);
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/flash/known"))), QByteArray("known"));
    QVERIFY(!QFileInfo::exists(unit.path(unit.path(QStringLiteral("/media/flash/known")))));
}

void TestGate::dotsAreTakenByTheText()
{
    OpenUnit unit;
    const QString stick = unit.beside(QStringLiteral("stick"));
    QVERIFY(QDir().mkpath(stick));
    writeFile(unit.beside(QStringLiteral("flash")), "outside");
    writeFile(unit.path(QStringLiteral("/media/flash/known")), "known");
    QString error;
    QVERIFY(unit->storage().plug(QStringLiteral("usb0"), stick, &error));
    const Gate gate(*unit);
    QCOMPARE(readFile(QStringLiteral("/media/usb0/../flash/known")), QByteArray("known"));
    QCOMPARE(readFile(QStringLiteral("//media/./usb0//../flash/known")), QByteArray("known"));
    QCOMPARE(readFile(QStringLiteral("/tmp/../media/flash/known")), QByteArray("known"));
}

void TestGate::everyPathOfTheTableIsLed_data()
{
    QTest::addColumn<QString>("path");

    for (const char *path : {"/dev/mem", "/dev/ttyS3", "/media/file", "/proc/sys/kernel/printk",
                             "/sys/devices/platform/ehci-platform.1/usb_speed_switch",
                             "/sys/module/usbcore/parameters/usb_logo_test_start"}) {
        QTest::newRow(path) << QString::fromLatin1(path);
    }
}

void TestGate::everyPathOfTheTableIsLed()
{
    QFETCH(QString, path);

    OpenUnit unit;
    QFile::remove(unit.path(path)); // A device would answer in the file's place.
    writeFile(unit.path(path), "the unit's");
    const Gate gate(*unit);
    QCOMPARE(readFile(path), QByteArray("the unit's"));
}

void TestGate::errnoIsKept()
{
    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/media/flash/known")), "known");
    const Gate gate(*unit);
    errno = 123;
    const int result = access("/media/flash/known", F_OK);
    const int left = errno;
    QCOMPARE(result, 0);
    QCOMPARE(left, 123);
}

void TestGate::noPathIsTheHostsError()
{
    OpenUnit unit;
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe-hardened");
    for (std::size_t i = 0; i < probe.count; ++i) {
        const ProbeCall &call = probe.calls[i];
        // The C library itself looks into the path of the others before it asks the system.
        const QByteArrayList asked{"access", "open",  "stat",     "lstat", "mkdir",
                                   "unlink", "rmdir", "truncate", "chmod"};
        if (asked.contains(call.name)) {
            QVERIFY2(call.run(nullptr, nullptr) == EFAULT, call.name);
        }
    }
}

void TestGate::anotherGateLeadsToItsOwnUnit()
{
    OpenUnit first;
    OpenUnit second;
    writeFile(first.path(QStringLiteral("/media/flash/known")), "first");
    writeFile(second.path(QStringLiteral("/media/flash/known")), "second");
    const QString path = QStringLiteral("/media/flash/known");
    QVERIFY(Gate::current() == nullptr);
    {
        const Gate gate(*first);
        QVERIFY(Gate::current() == &gate);
        QCOMPARE(readFile(path), QByteArray("first"));
    }
    QVERIFY(!QFileInfo::exists(path));
    const Gate gate(*second);
    QCOMPARE(readFile(path), QByteArray("second"));
}

void TestGate::eightThreadsPassTheGate()
{
    OpenUnit unit;
    const Gate gate(*unit);
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread) {
        threads.emplace_back([thread, &failures] {
            const QString path = QStringLiteral("/media/flash/t%1").arg(thread);
            for (int i = 0; i < 100; ++i) {
                const QByteArray content = QByteArray::number(i);
                writeFile(path, content);
                failures += readFile(path) == content ? 0 : 1;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QCOMPARE(failures.load(), 0);
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/flash/t7"))), QByteArray("99"));
}

FACTORY_TEST_GUILESS_MAIN(TestGate)
#include "tst_gate.moc"
