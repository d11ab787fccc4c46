#include "gate/gate.h"

#include "probemodule.h"
#include "support/openunit.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QSaveFile>
#include <QSettings>
#include <QStorageInfo>
#include <QTemporaryFile>
#include <QtTest>

#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>
#include <vector>

#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

using hardware::Gate;

using PathCheck = std::function<bool(const QString &path)>;
Q_DECLARE_METATYPE(PathCheck)
using Wait = std::function<int(const GateProbe &)>;
Q_DECLARE_METATYPE(Wait)

namespace
{

constexpr double fast = 100; // the time factor of the tests of time

// The upper bounds of times are far off, for busy machines, and still far below what an unscaled
// wait would last.
constexpr int muchTooLongMs = 20000;

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

/// Interrupts the waits of its lifetime by a signal, after 200 ms and again and again in case that
/// the wait has not begun by then.
class Interruption
{
public:
    Interruption()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        sigaction(SIGALRM, &action, &m_former);
        const itimerval twiceASecond = {{0, 500000}, {0, 500000}};
        setitimer(ITIMER_REAL, &twiceASecond, nullptr);
        m_timer.start();
    }
    ~Interruption()
    {
        const itimerval never = {};
        setitimer(ITIMER_REAL, &never, nullptr);
        sigaction(SIGALRM, &m_former, nullptr);
    }
    Q_DISABLE_COPY(Interruption)

    /// Whether that rest of a wait of 10 000 unit seconds is right: what went by since this object
    /// was made is the most that can be missing, and a second (10 ms) the least.
    bool leaves(double seconds) const
    {
        return seconds >= 10000 - m_timer.nsecsElapsed() / 1e9 * fast && seconds <= 9999;
    }

private:
    struct sigaction m_former = {};
    QElapsedTimer m_timer;
};

} // namespace

class tst_Gate : public QObject
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
    void qtSeesTheUnit_data();
    void qtSeesTheUnit();
    void theStandardLibrarySeesTheUnit_data();
    void theStandardLibrarySeesTheUnit();
    void anotherGateLeadsToItsOwnUnit();
    void eightThreadsPassTheGate();

    void systemRunsInTheUnit_data();
    void systemRunsInTheUnit();
    void systemWithoutCommandSaysThatThereIsAShell();
    void withoutAGateSystemIsTheHosts();

    void timeOfFactorOneIsTheHosts();
    void timeRunsFaster_data();
    void timeRunsFaster();
    void selectKeepsTheRestInUnitTime();
    void selectWithoutTimeoutWaits();
    void selectThatOnlyLooksDoesNotWait();
    void aVeryShortWaitEnds();
    void anInterruptedWaitKeepsTheRestInUnitTime();
    void wrongTimesAreRefused();
    void theClockBeginsWithTheHosts();
    void theClockRunsFaster();
    void theClockNeverGoesBack();
    void theUnitsOwnClockIsNotScaledTwice();

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

void tst_Gate::initTestCase()
{
    QVERIFY2(!QFileInfo::exists(QStringLiteral("/media/flash")),
             "The tests need a host without /media/flash.");
    umask(022);
    m_unit.reset(new OpenUnit);
}

void tst_Gate::init()
{
    static int count = 0;
    m_area = QStringLiteral("/media/flash/area%1").arg(++count);
}

void tst_Gate::cleanupTestCase()
{
    m_unit.reset();
}

void tst_Gate::prepare(ProbeCall::Kind kind, const QString &folder)
{
    if (kind == ProbeCall::Enters || kind == ProbeCall::RemovesFolder) {
        QVERIFY(QDir().mkpath(folder + QStringLiteral("/known")));
    } else if (kind == ProbeCall::Makes) {
        QVERIFY(QDir().mkpath(folder));
    } else {
        writeFile(folder + QStringLiteral("/known"), "known");
    }
}

int tst_Gate::run(const ProbeCall &call, const QString &folder)
{
    const QByteArray known = encoded(folder + QStringLiteral("/known"));
    const QByteArray other = encoded(folder + QStringLiteral("/other"));
    return call.run(known.constData(), other.constData());
}

void tst_Gate::check(const ProbeCall &call, const QString &folder)
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

void tst_Gate::aCallLeadsIntoTheUnit()
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

void tst_Gate::aCallElsewherePassesThrough()
{
    QFETCH(QByteArray, module);
    QFETCH(int, call);

    const ProbeCall &probe = probeOf(module).calls[call];
    prepare(probe.kind, outside());
    const Gate gate(**m_unit);
    QCOMPARE(run(probe, outside()), 0);
    check(probe, outside());
}

void tst_Gate::aRelativeCallPassesThrough()
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

void tst_Gate::withoutAGateTheHostAnswers()
{
    QFETCH(QByteArray, module);
    QFETCH(int, call);

    const ProbeCall &probe = probeOf(module).calls[call];
    prepare(probe.kind, inUnit());
    QCOMPARE(run(probe, m_area), ENOENT);
}

void tst_Gate::aPathOutOfTheUnitIsDenied()
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

void tst_Gate::aSecondPathOutOfTheUnitIsDenied()
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

void tst_Gate::aPathThatIsTooLongIsRefused()
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

void tst_Gate::aPathOfTheUnitsFolderPassesThrough()
{
    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/media/flash/known")), "known");
    const Gate gate(*unit);
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/flash/known"))), QByteArray("known"));
    QVERIFY(!QFileInfo::exists(unit.path(unit.path(QStringLiteral("/media/flash/known")))));
}

void tst_Gate::dotsAreTakenByTheText()
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

void tst_Gate::everyPathOfTheTableIsLed_data()
{
    QTest::addColumn<QString>("path");

    for (const char *path : {"/dev/mem", "/dev/ttyS3", "/media/file", "/proc/sys/kernel/printk",
                             "/sys/devices/platform/ehci-platform.1/usb_speed_switch",
                             "/sys/module/usbcore/parameters/usb_logo_test_start"}) {
        QTest::newRow(path) << QString::fromLatin1(path);
    }
}

void tst_Gate::everyPathOfTheTableIsLed()
{
    QFETCH(QString, path);

    OpenUnit unit;
    QFile::remove(unit.path(path)); // A device would answer in the file's place.
    writeFile(unit.path(path), "the unit's");
    const Gate gate(*unit);
    QCOMPARE(readFile(path), QByteArray("the unit's"));
}

void tst_Gate::errnoIsKept()
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

void tst_Gate::noPathIsTheHostsError()
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

void tst_Gate::qtSeesTheUnit_data()
{
    QTest::addColumn<PathCheck>("check");

    const auto row = [](const char *name, PathCheck check) { QTest::newRow(name) << check; };
    row("QFile reads", [](const QString &path) { return readFile(path) == "known"; });
    row("QFile writes", [](const QString &path) {
        writeFile(path, "other");
        return readFile(path) == "other";
    });
    row("QFile appends", [](const QString &path) {
        QFile file(path);
        return file.open(QIODevice::Append) && file.write("!") == 1 && file.flush()
            && readFile(path) == "known!";
    });
    row("QFile exists", [](const QString &path) { return QFile::exists(path); });
    row("QFile removes",
        [](const QString &path) { return QFile::remove(path) && !QFile::exists(path); });
    row("QFile renames", [](const QString &path) {
        return QFile::rename(path, path + QStringLiteral("2"))
            && readFile(path + QStringLiteral("2")) == "known";
    });
    row("QFile copies", [](const QString &path) {
        return QFile::copy(path, path + QStringLiteral("2"))
            && readFile(path + QStringLiteral("2")) == "known";
    });
    row("QFile links", [](const QString &path) {
        return QFile::link(path, path + QStringLiteral("2"))
            && readFile(path + QStringLiteral("2")) == "known";
    });
    row("QFile resizes",
        [](const QString &path) { return QFile::resize(path, 2) && readFile(path) == "kn"; });
    row("QFile sets permissions", [](const QString &path) {
        return QFile::setPermissions(path, QFileDevice::ReadOwner)
            && !(QFile::permissions(path) & QFileDevice::WriteOwner);
    });
    row("QFileInfo", [](const QString &path) {
        const QFileInfo info(path);
        return info.isFile() && info.size() == 5 && info.lastModified().isValid()
            && info.isReadable();
    });
    row("QFileInfo of a folder",
        [](const QString &path) { return QFileInfo(QFileInfo(path).path()).isDir(); });
    row("QFileInfo canonical", [](const QString &path) {
        return readFile(QFileInfo(path).canonicalFilePath()) == "known";
    });
    row("QDir lists", [](const QString &path) {
        return QFileInfo(path).dir().entryList(QDir::Files) == QStringList{QStringLiteral("known")};
    });
    row("QDir makes and removes", [](const QString &path) {
        const QString folder = QFileInfo(path).path() + QStringLiteral("/a/b");
        return QDir().mkpath(folder) && QFileInfo(folder).isDir()
            && QDir(QFileInfo(folder).path()).removeRecursively() && !QFileInfo::exists(folder);
    });
    row("QDirIterator", [](const QString &path) {
        QDirIterator iterator(QFileInfo(path).path(), {QStringLiteral("known")}, QDir::Files,
                              QDirIterator::Subdirectories);
        return iterator.hasNext() && iterator.next() == path;
    });
    row("QSaveFile", [](const QString &path) {
        QSaveFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write("other") == 5 && file.commit()
            && readFile(path) == "other";
    });
    row("QTemporaryFile", [](const QString &path) {
        QTemporaryFile file(QFileInfo(path).path() + QStringLiteral("/XXXXXX"));
        return file.open() && QFileInfo::exists(file.fileName());
    });
    row("QTemporaryFile by name", [](const QString &path) {
        QTemporaryFile file;
        const QString copy = path + QStringLiteral("2");
        return file.open() && file.write("text") == 4 && file.flush() && file.rename(copy)
            && readFile(copy) == "text";
    });
    row("QSettings", [](const QString &path) {
        const QString file = path + QStringLiteral(".ini");
        QSettings(file, QSettings::IniFormat).setValue(QStringLiteral("a"), 1);
        return readFile(file).contains("a=1");
    });
    row("QStorageInfo",
        [](const QString &path) { return QStorageInfo(QFileInfo(path).path()).bytesTotal() > 0; });
    row("QFileSystemWatcher", [](const QString &path) {
        QFileSystemWatcher watcher;
        QSignalSpy changed(&watcher, &QFileSystemWatcher::fileChanged);
        if (!watcher.addPath(path)) {
            return false;
        }
        writeFile(path, "other");
        return changed.count() > 0 || changed.wait(10000);
    });
}

void tst_Gate::qtSeesTheUnit()
{
    QFETCH(PathCheck, check);

    writeFile(inUnit() + QStringLiteral("/known"), "known");
    const Gate gate(**m_unit);
    QVERIFY(check(m_area + QStringLiteral("/known")));
}

void tst_Gate::theStandardLibrarySeesTheUnit_data()
{
    QTest::addColumn<PathCheck>("check");

    const auto row = [](const char *name, std::function<bool(const std::string &)> check) {
        QTest::newRow(name) << PathCheck(
            [check](const QString &path) { return check(path.toStdString()); });
    };
    row("ifstream", [](const std::string &path) {
        std::string text;
        std::ifstream(path) >> text;
        return text == "known";
    });
    row("ofstream", [](const std::string &path) {
        std::ofstream(path) << "other";
        return readFile(QString::fromStdString(path)) == "other";
    });
    row("filesystem exists", [](const std::string &path) { return std::filesystem::exists(path); });
    row("filesystem size",
        [](const std::string &path) { return std::filesystem::file_size(path) == 5; });
    row("filesystem copy", [](const std::string &path) {
        std::filesystem::copy_file(path, path + "2");
        return std::filesystem::file_size(path + "2") == 5;
    });
    row("filesystem folders", [](const std::string &path) {
        const std::filesystem::path folder = std::filesystem::path(path).parent_path();
        std::filesystem::create_directories(folder / "a" / "b");
        std::size_t count = 0;
        for (const auto &entry : std::filesystem::recursive_directory_iterator(folder)) {
            count += entry.exists() ? 1 : 0;
        }
        return count == 3 && std::filesystem::remove_all(folder / "a") == 2;
    });
    row("filesystem rename", [](const std::string &path) {
        std::filesystem::rename(path, path + "2");
        return std::filesystem::exists(path + "2");
    });
    row("filesystem space",
        [](const std::string &path) { return std::filesystem::space(path).capacity > 0; });
}

void tst_Gate::theStandardLibrarySeesTheUnit()
{
    QFETCH(PathCheck, check);

    writeFile(inUnit() + QStringLiteral("/known"), "known");
    const Gate gate(**m_unit);
    QVERIFY(check(m_area + QStringLiteral("/known")));
}

void tst_Gate::anotherGateLeadsToItsOwnUnit()
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

void tst_Gate::eightThreadsPassTheGate()
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

void tst_Gate::systemRunsInTheUnit_data()
{
    QTest::addColumn<QByteArray>("module");

    for (const char *module : probeModules) {
        QTest::newRow(module) << QByteArray(module);
    }
}

void tst_Gate::systemRunsInTheUnit()
{
    QFETCH(QByteArray, module);

    OpenUnit unit;
    const Gate gate(*unit);
    const GateProbe &probe = probeOf(module);
    QCOMPARE(probe.system("echo text > /media/flash/known"), 0);
    QCOMPARE(WEXITSTATUS(probe.system("exit 7")), 7);
    QCOMPARE(WEXITSTATUS(probe.system("cat /dev/sda")), 126);
    QCOMPARE(readFile(unit.path(QStringLiteral("/media/flash/known"))), QByteArray("text\n"));
    QCOMPARE(unit->journal().lines(),
             (QStringList{QStringLiteral("shell echo text > /media/flash/known"),
                          QStringLiteral("shell exit 7"),
                          QStringLiteral("shell refused cat /dev/sda")}));
}

void tst_Gate::systemWithoutCommandSaysThatThereIsAShell()
{
    OpenUnit unit;
    const GateProbe &probe = probeOf("gateprobe");
    QVERIFY(probe.system(nullptr) != 0);
    const Gate gate(*unit);
    QVERIFY(probe.system(nullptr) != 0);
    QCOMPARE(unit->journal().lines(), QStringList());
}

void tst_Gate::withoutAGateSystemIsTheHosts()
{
    OpenUnit unit;
    QCOMPARE(WEXITSTATUS(probeOf("gateprobe").system("test -z \"$UNIT\" && exit 5")), 5);
    QCOMPARE(unit->journal().lines(), QStringList());
}

void tst_Gate::timeOfFactorOneIsTheHosts()
{
    OpenUnit unit;
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(probe.usleep(30000), 0);
    QVERIFY(timer.nsecsElapsed() >= 30000000);

    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    timer.restart();
    timeval timeout = {0, 30000};
    QCOMPARE(probe.select(pipeEnds[0], &timeout), 0);
    QVERIFY(timer.nsecsElapsed() >= 30000000);
    close(pipeEnds[0]);
    close(pipeEnds[1]);

    timespec host;
    timeval shown;
    clock_gettime(CLOCK_REALTIME, &host);
    QCOMPARE(probe.gettimeofday(&shown), 0);
    QVERIFY(shown.tv_sec >= host.tv_sec && shown.tv_sec < host.tv_sec + 60);
}

void tst_Gate::timeRunsFaster_data()
{
    QTest::addColumn<Wait>("wait");

    const auto row = [](const char *name, const Wait &wait) { QTest::newRow(name) << wait; };
    // Ten seconds of the unit's time each.
    row("sleep", [](const GateProbe &probe) { return int(probe.sleep(10)); });
    row("usleep", [](const GateProbe &probe) { return probe.usleep(10000000); });
    row("nanosleep", [](const GateProbe &probe) {
        const timespec duration = {9, 1000000000 - 1};
        timespec remaining = {5, 5};
        return probe.nanosleep(&duration, &remaining);
    });
    row("select", [](const GateProbe &probe) {
        int pipeEnds[2];
        timeval timeout = {10, 0};
        int result = pipe(pipeEnds);
        result += probe.select(pipeEnds[0], &timeout);
        close(pipeEnds[0]);
        close(pipeEnds[1]);
        return result + int(timeout.tv_sec + timeout.tv_usec);
    });
    row("QThread", [](const GateProbe &) {
        QThread::msleep(10000);
        return 0;
    });
    row("std::this_thread", [](const GateProbe &) {
        std::this_thread::sleep_for(std::chrono::seconds(10));
        return 0;
    });
}

void tst_Gate::timeRunsFaster()
{
    QFETCH(Wait, wait);

    OpenUnit unit(fast);
    const Gate gate(*unit);
    for (const char *module : probeModules) {
        const GateProbe &probe = probeOf(module);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(wait(probe), 0);
        const double elapsedMs = timer.nsecsElapsed() / 1e6;
        QVERIFY2(elapsedMs >= 99.9, qPrintable(QString::number(elapsedMs)));
        QVERIFY2(elapsedMs < 5000, qPrintable(QString::number(elapsedMs)));
    }
}

void tst_Gate::selectKeepsTheRestInUnitTime()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    std::thread writer([&pipeEnds, &unit] {
        unit->clock().sleep(5000000);
        if (write(pipeEnds[1], "x", 1) != 1) {
            qFatal("The pipe cannot be written.");
        }
    });
    timeval timeout = {10000, 0};
    const int result = probeOf("gateprobe").select(pipeEnds[0], &timeout);
    writer.join();
    close(pipeEnds[0]);
    close(pipeEnds[1]);
    QCOMPARE(result, 1);
    // Five seconds or more are over, and not hours.
    const double left = timeout.tv_sec + timeout.tv_usec / 1e6;
    QVERIFY2(left <= 9995.01 && left > 5000, qPrintable(QString::number(left)));
    QVERIFY(timeout.tv_usec >= 0 && timeout.tv_usec < 1000000);
}

void tst_Gate::selectWithoutTimeoutWaits()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    std::thread writer([&pipeEnds, &unit] {
        unit->clock().sleep(5000000);
        if (write(pipeEnds[1], "x", 1) != 1) {
            qFatal("The pipe cannot be written.");
        }
    });
    QElapsedTimer timer;
    timer.start();
    const int result = probeOf("gateprobe").select(pipeEnds[0], nullptr);
    const qint64 elapsed = timer.elapsed();
    writer.join();
    close(pipeEnds[0]);
    close(pipeEnds[1]);
    QCOMPARE(result, 1);
    QVERIFY2(elapsed >= 30, qPrintable(QString::number(elapsed)));
}

void tst_Gate::selectThatOnlyLooksDoesNotWait()
{
    OpenUnit unit(0.001);
    const Gate gate(*unit);
    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    QElapsedTimer timer;
    timer.start();
    timeval timeout = {0, 0};
    QCOMPARE(probeOf("gateprobe").select(pipeEnds[0], &timeout), 0);
    QVERIFY(timer.elapsed() < muchTooLongMs);
    close(pipeEnds[0]);
    close(pipeEnds[1]);
}

void tst_Gate::aVeryShortWaitEnds()
{
    OpenUnit unit(1e6);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(probe.usleep(1), 0);
    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    timeval timeout = {0, 1};
    QCOMPARE(probe.select(pipeEnds[0], &timeout), 0);
    close(pipeEnds[0]);
    close(pipeEnds[1]);
    // Two waits of at least a microsecond of the host's.
    QVERIFY(timer.nsecsElapsed() >= 2000);
    QVERIFY(timer.elapsed() < muchTooLongMs);
}

void tst_Gate::anInterruptedWaitKeepsTheRestInUnitTime()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    {
        const Interruption interruption;
        const unsigned int left = probe.sleep(10000);
        QVERIFY2(interruption.leaves(left), qPrintable(QString::number(left)));
    }
    {
        const Interruption interruption;
        const timespec duration = {10000, 0};
        timespec left = {};
        QCOMPARE(probe.nanosleep(&duration, &left), -1);
        QCOMPARE(errno, EINTR);
        const double seconds = left.tv_sec + left.tv_nsec / 1e9;
        QVERIFY2(interruption.leaves(seconds), qPrintable(QString::number(seconds)));
        QVERIFY(left.tv_nsec >= 0 && left.tv_nsec < 1000000000);
    }
    {
        const Interruption interruption;
        const timespec duration = {10000, 0};
        QCOMPARE(probe.nanosleep(&duration, nullptr), -1);
    }
    {
        const Interruption interruption;
        QCOMPARE(probe.usleep(1000000000), -1);
        QCOMPARE(errno, EINTR);
    }
}

void tst_Gate::wrongTimesAreRefused()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    for (const timespec wrong : {timespec{-1, 0}, timespec{0, -1}, timespec{0, 1000000000}}) {
        errno = 0;
        QCOMPARE(probe.nanosleep(&wrong, nullptr), -1);
        QCOMPARE(errno, EINVAL);
    }
    int pipeEnds[2];
    QCOMPARE(pipe(pipeEnds), 0);
    for (timeval wrong : {timeval{-1, 0}, timeval{0, -1}}) {
        errno = 0;
        QCOMPARE(probe.select(pipeEnds[0], &wrong), -1);
        QCOMPARE(errno, EINVAL);
    }
    close(pipeEnds[0]);
    close(pipeEnds[1]);
}

void tst_Gate::theClockBeginsWithTheHosts()
{
    OpenUnit unit(fast);
    timespec before;
    clock_gettime(CLOCK_REALTIME, &before);
    const Gate gate(*unit);
    timeval shown;
    QCOMPARE(probeOf("gateprobe").gettimeofday(&shown), 0);
    // Far below a minute of the host's can have passed in between.
    QVERIFY(shown.tv_sec >= before.tv_sec);
    QVERIFY(shown.tv_sec < before.tv_sec + 60 * fast);
}

void tst_Gate::theClockRunsFaster()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    const auto seconds = [&probe] {
        timeval now;
        probe.gettimeofday(&now);
        return now.tv_sec + now.tv_usec / 1e6;
    };
    QElapsedTimer outer;
    outer.start();
    const double before = seconds();
    QElapsedTimer inner;
    inner.start();
    unit->clock().sleep(10000000);
    const double atLeast = inner.nsecsElapsed() / 1e9 * fast;
    const double shown = seconds() - before;
    const double atMost = outer.nsecsElapsed() / 1e9 * fast;
    QVERIFY2(shown >= atLeast - 0.001 && shown <= atMost + 0.001,
             qPrintable(QStringLiteral("%1 <= %2 <= %3").arg(atLeast).arg(shown).arg(atMost)));
    QVERIFY(shown >= 9.9);
}

void tst_Gate::theClockNeverGoesBack()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    const GateProbe &probe = probeOf("gateprobe");
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&probe, &failures] {
            timeval last = {};
            for (int i = 0; i < 20000; ++i) {
                timeval now;
                probe.gettimeofday(&now);
                const bool isLater = now.tv_sec > last.tv_sec
                    || (now.tv_sec == last.tv_sec && now.tv_usec >= last.tv_usec);
                failures += isLater && now.tv_usec >= 0 && now.tv_usec < 1000000 ? 0 : 1;
                last = now;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    QCOMPARE(failures.load(), 0);
}

void tst_Gate::theUnitsOwnClockIsNotScaledTwice()
{
    OpenUnit unit(fast);
    const Gate gate(*unit);
    QElapsedTimer timer;
    timer.start();
    unit->clock().sleep(10000000);
    QVERIFY2(timer.nsecsElapsed() >= 99900000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(tst_Gate)
#include "tst_gate.moc"
