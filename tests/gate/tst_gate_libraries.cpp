#include "gate/gate.h"

#include "probemodule.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QSaveFile>
#include <QSettings>
#include <QStorageInfo>
#include <QTemporaryFile>
#include <QtTest>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>

#include <sys/wait.h>
#include <unistd.h>

using hardware::Gate;

using PathCheck = std::function<bool(const QString &path)>;
Q_DECLARE_METATYPE(PathCheck)

/// What Qt, the standard library and the C library's system() make of the calls that a gate takes.
class TestGateLibraries : public QObject
{
    Q_OBJECT

private slots:
    void qtSeesTheUnit_data();
    void qtSeesTheUnit();
    void theStandardLibrarySeesTheUnit_data();
    void theStandardLibrarySeesTheUnit();
    void systemRunsInTheUnit_data();
    void systemRunsInTheUnit();
    void systemWithoutCommandSaysThatThereIsAShell();
    void withoutAGateSystemIsTheHosts();
    void exitEndsAtOnce();
};

void TestGateLibraries::qtSeesTheUnit_data()
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

void TestGateLibraries::qtSeesTheUnit()
{
    QFETCH(PathCheck, check);

    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/media/flash/area/known")), "known");
    const Gate gate(*unit);
    QVERIFY(check(QStringLiteral("/media/flash/area/known")));
}

void TestGateLibraries::theStandardLibrarySeesTheUnit_data()
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

void TestGateLibraries::theStandardLibrarySeesTheUnit()
{
    QFETCH(PathCheck, check);

    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/media/flash/area/known")), "known");
    const Gate gate(*unit);
    QVERIFY(check(QStringLiteral("/media/flash/area/known")));
}

void TestGateLibraries::systemRunsInTheUnit_data()
{
    QTest::addColumn<QByteArray>("module");

    for (const char *module : probeModules) {
        QTest::newRow(module) << QByteArray(module);
    }
}

void TestGateLibraries::systemRunsInTheUnit()
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

void TestGateLibraries::systemWithoutCommandSaysThatThereIsAShell()
{
    OpenUnit unit;
    const GateProbe &probe = probeOf("gateprobe");
    QVERIFY(probe.system(nullptr) != 0);
    const Gate gate(*unit);
    QVERIFY(probe.system(nullptr) != 0);
    QCOMPARE(unit->journal().lines(), QStringList());
}

void TestGateLibraries::withoutAGateSystemIsTheHosts()
{
    OpenUnit unit;
    QCOMPARE(WEXITSTATUS(probeOf("gateprobe").system("test -z \"$UNIT\" && exit 5")), 5);
    QCOMPARE(unit->journal().lines(), QStringList());
}

void TestGateLibraries::exitEndsAtOnce()
{
    OpenUnit unit;
    const Gate gate(*unit);
    const QTemporaryDir folder;
    const QByteArray file = QFile::encodeName(folder.filePath("printed"));
    const pid_t child = fork();
    if (child == 0) {
        // What the C library's own exit() would run, and other threads still need.
        std::atexit([] { _exit(99); });
        std::fputs("printed", std::fopen(file.constData(), "w"));
        std::exit(7);
    }
    int status = 0;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 7);
    QCOMPARE(readFile(file), QByteArray("printed"));
}

FACTORY_TEST_GUILESS_MAIN(TestGateLibraries)
#include "tst_gate_libraries.moc"
