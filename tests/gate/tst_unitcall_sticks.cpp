// Sticks that are write-protected or slow, as a program finds them behind the gate: its calls are
// those of the C library.

#include "gate/gate.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QElapsedTimer>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <functional>

using hardware::Gate;
using hardware::Journal;
using hardware::StickTrait;

namespace
{

/// 0, or errno of the call that failed.
using Attempt = std::function<int()>;

int errorOf(bool isDone)
{
    return isDone ? 0 : errno;
}

Attempt opening(const char *path, int flags)
{
    return [path, flags] {
        const int descriptor = open(path, flags, 0644);
        return errorOf(descriptor >= 0 && close(descriptor) == 0);
    };
}

Attempt opening(const char *path, const char *mode)
{
    return [path, mode] {
        FILE *stream = fopen(path, mode);
        return errorOf(stream != nullptr && fclose(stream) == 0);
    };
}

} // namespace

Q_DECLARE_METATYPE(Attempt)

class TestUnitCallSticks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aWriteProtectedStickRefuses_data();
    void aWriteProtectedStickRefuses();
    void aRefusalIsTold();
    void otherwiseNothingIsRefused();
    void aSlowStickTakesItsTime_data();
    void aSlowStickTakesItsTime();

private:
    void set(const QString &slot, StickTrait trait, int value);

    QScopedPointer<OpenUnit> m_unit;
    QScopedPointer<Gate> m_gate;
};

void TestUnitCallSticks::init()
{
    m_unit.reset(new OpenUnit(10));
    writeFile(m_unit->path(QStringLiteral("/sticks/usb0/file")), QByteArray(20000, 'x'));
    writeFile(m_unit->path(QStringLiteral("/sticks/usb1/file")), QByteArray(20000, 'x'));
    for (const char *slot : {"usb0", "usb1"}) {
        QString error;
        QVERIFY2((*m_unit)->storage().plug(slot, QString(), &error), qPrintable(error));
    }
    m_gate.reset(new Gate(**m_unit));
}

void TestUnitCallSticks::cleanup()
{
    m_gate.reset();
    m_unit.reset();
}

void TestUnitCallSticks::set(const QString &slot, StickTrait trait, int value)
{
    QString error;
    QVERIFY2((*m_unit)->storage().setTrait(slot, trait, value, &error), qPrintable(error));
}

void TestUnitCallSticks::aWriteProtectedStickRefuses_data()
{
    QTest::addColumn<Attempt>("attempt");
    QTest::addColumn<int>("error");
    const auto row = [](const char *name, int error, const Attempt &attempt) {
        QTest::newRow(name) << attempt << error;
    };
    const auto simple = [](int (*call)(const char *), const char *path) {
        return [call, path] { return errorOf(call(path) == 0); };
    };
    row("open to write", EROFS, opening("/media/usb0/file", O_WRONLY));
    row("open for both", EROFS, opening("/media/usb0/file", O_RDWR));
    row("open and empty", EROFS, opening("/media/usb0/file", O_RDONLY | O_TRUNC));
    row("open anew", EROFS, opening("/media/usb0/new", O_RDONLY | O_CREAT));
    row("openat", EROFS,
        [] { return errorOf(openat(AT_FDCWD, "/media/usb0/new", O_WRONLY | O_CREAT, 0644) >= 0); });
    row("creat", EROFS, [] { return errorOf(creat("/media/usb0/new", 0644) >= 0); });
    row("fopen w", EROFS, opening("/media/usb0/new", "w"));
    row("fopen a", EROFS, opening("/media/usb0/file", "ab"));
    row("fopen r+", EROFS, opening("/media/usb0/file", "r+"));
    row("freopen", EROFS, [] {
        FILE *stream = fopen("/media/usb0/file", "r");
        const int error = errorOf(freopen("/media/usb0/new", "w", stream) != nullptr);
        fclose(stream); // which is closed already, but not given back
        return error;
    });
    row("mkdir", EROFS, [] { return errorOf(mkdir("/media/usb0/new", 0755) == 0); });
    row("mkdir, is there", EEXIST, [] { return errorOf(mkdir("/media/usb0/file", 0755) == 0); });
    row("rmdir", EROFS, simple(rmdir, "/media/usb0/folder"));
    row("unlink", EROFS, simple(unlink, "/media/usb0/file"));
    row("remove", EROFS, simple(remove, "/media/usb0/file"));
    row("rename there", EROFS,
        [] { return errorOf(rename("/media/usb0/file", "/media/usb0/new") == 0); });
    row("rename from there", EROFS,
        [] { return errorOf(rename("/media/usb0/file", "/media/usb1/new") == 0); });
    row("rename to there", EROFS,
        [] { return errorOf(rename("/media/usb1/file", "/media/usb0/new") == 0); });
    row("symlink", EROFS, [] { return errorOf(symlink("file", "/media/usb0/new") == 0); });
    row("symlink to there", 0,
        [] { return errorOf(symlink("/media/usb0/file", "/media/usb1/new") == 0); });
    row("truncate", EROFS, [] { return errorOf(truncate("/media/usb0/file", 0) == 0); });
    row("chmod", EROFS, [] { return errorOf(chmod("/media/usb0/file", 0600) == 0); });

    row("open to read", 0, opening("/media/usb0/file", O_RDONLY));
    row("open what is there", 0, opening("/media/usb0/file", O_RDONLY | O_CREAT));
    row("fopen r", 0, opening("/media/usb0/file", "rb"));
    row("access", 0, [] { return errorOf(access("/media/usb0/file", R_OK) == 0); });
    row("another stick", 0, opening("/media/usb1/new", O_WRONLY | O_CREAT));
    row("flash", 0, opening("/media/flash/new", "w"));
}

void TestUnitCallSticks::aWriteProtectedStickRefuses()
{
    QFETCH(Attempt, attempt);
    set(QStringLiteral("usb0"), StickTrait::WriteProtected, 1);
    const int error = attempt();
    QTEST(error, "error");
    const QDir stick(m_unit->path(QStringLiteral("/sticks/usb0")));
    QCOMPARE(stick.entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList("file"));
    QCOMPARE(QFileInfo(stick.filePath(QStringLiteral("file"))).size(), qint64(20000));
}

void TestUnitCallSticks::aRefusalIsTold()
{
    set(QStringLiteral("usb0"), StickTrait::WriteProtected, 1);
    const qint64 before = (*m_unit)->journal().end();
    QCOMPARE(mkdir("/media/usb0/new", 0755), -1);
    QCOMPARE(rename("/media/usb1/file", "/media/usb0/file"), -1);
    QCOMPARE((*m_unit)->journal().lines(QString(), before, Journal::Everything),
             (QStringList{"gate mkdir(\"/media/usb0/new\") = EROFS",
                          "gate rename(\"/media/usb1/file\", \"/media/usb0/file\") = EROFS"}));
}

void TestUnitCallSticks::otherwiseNothingIsRefused()
{
    set(QStringLiteral("usb0"), StickTrait::WriteProtected, 1);
    set(QStringLiteral("usb0"), StickTrait::WriteProtected, 0);
    QCOMPARE(opening("/media/usb0/file", O_RDWR)(), 0);
    set(QStringLiteral("usb0"), StickTrait::WriteProtected, 1);
    QString error;
    QVERIFY((*m_unit)->storage().pull(QStringLiteral("usb0"), &error));
    QCOMPARE(opening("/media/usb0/file", O_RDWR)(), ENOENT);
}

void TestUnitCallSticks::aSlowStickTakesItsTime_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("isStream");
    QTest::addColumn<bool>("isSlow");
    QTest::newRow("stream") << QByteArray("/media/usb0/file") << true << true;
    QTest::newRow("descriptor") << QByteArray("/media/usb0/file") << false << true;
    QTest::newRow("another stick's stream") << QByteArray("/media/usb1/file") << true << false;
    QTest::newRow("another stick's descriptor") << QByteArray("/media/usb1/file") << false << false;
}

void TestUnitCallSticks::aSlowStickTakesItsTime()
{
    QFETCH(QByteArray, path);
    QFETCH(bool, isStream);
    QFETCH(bool, isSlow);
    // 20 s of the unit's time, 2 s of the host's.
    set(QStringLiteral("usb0"), StickTrait::Slow, 1000);
    char bytes[1000];
    int size = 0;
    QElapsedTimer host;
    host.start();
    if (isStream) {
        FILE *stream = fopen(path, "rb");
        for (size_t items = 1; items > 0; size += 500 * int(items)) {
            items = fread(bytes, 500, 2, stream);
        }
        fclose(stream);
    } else {
        const int descriptor = open(path, O_RDONLY);
        for (ssize_t count = 1; count > 0; size += int(count)) {
            count = read(descriptor, bytes, sizeof bytes);
        }
        close(descriptor);
    }
    const qint64 taken = host.elapsed();
    QCOMPARE(size, 20000);
    QVERIFY2(isSlow ? taken >= 2000 && taken < 18000 : taken < 2000,
             qPrintable(QString::number(taken)));
}

FACTORY_TEST_GUILESS_MAIN(TestUnitCallSticks)
#include "tst_unitcall_sticks.moc"
