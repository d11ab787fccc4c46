#include "gate/ledpath.h"

#include "gate/gate.h"
#include "hardware/unit/hostaccess.h"
#include "hardware/unit/unit.h"

#include <QtTest>

#include <cerrno>
#include <climits>

using hardware::Gate;
using hardware::HostAccess;
using hardware::LedPath;
using hardware::Unit;

class tst_LedPath : public QObject
{
    Q_OBJECT

private slots:
    void led_data();
    void led();
    void aUnitBelowMediaIsReached_data();
    void aUnitBelowMediaIsReached();
    void withoutAGatePathsStay();
    void withHostAccessPathsStay();
    void noPathStaysNone();
    void theLongestPath_data();
    void theLongestPath();
};

void tst_LedPath::led_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("led"); // null when the call is to fail

    const auto row = [](const char *path, const char *led) {
        QTest::newRow(path) << QByteArray(path) << QByteArray(led);
    };
    row("/media/usb0", "/unit/media/usb0");
    row("/media/usb0/", "/unit/media/usb0/");
    row("/media//usb0/../flash/.", "/unit/media/flash/");
    row("/dev/mem", "/unit/dev/mem");
    row("/tmp/../media", "/unit/media");
    row("/unit/../media", "/unit/media");
    row("/media/../etc/passwd", nullptr);
    row("/sys/module/../../etc/passwd", nullptr);

    // Untouched, to the letter.
    row("/dev/null", "/dev/null");
    row("/tmp//x/../media", "/tmp//x/../media");
    row("media/usb0", "media/usb0");
    row("../media/usb0", "../media/usb0");
    row("/unit/media/usb0", "/unit/media/usb0");
    row("/unit//dev/../media", "/unit//dev/../media");
    row("/unit", "/unit");
    row("/unit2/media", "/unit2/media");
    row("/", "/");
    row("", "");
}

void tst_LedPath::led()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, led);

    const Unit unit(QStringLiteral("/unit"));
    const Gate gate(unit);
    errno = 0;
    const LedPath ledPath(path.constData());
    QCOMPARE(ledPath.isValid(), !led.isNull());
    if (led.isNull()) {
        QCOMPARE(errno, EACCES);
    } else {
        QCOMPARE(QByteArray(ledPath.path()), led);
        QCOMPARE(errno, 0);
    }
}

void tst_LedPath::aUnitBelowMediaIsReached_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("led");

    QTest::newRow("the unit's media")
        << QByteArray("/media/usb0") << QByteArray("/media/disk/unit/media/usb0");
    QTest::newRow("the unit's folder")
        << QByteArray("/media/disk/unit") << QByteArray("/media/disk/unit");
    QTest::newRow("inside the unit's folder")
        << QByteArray("/media/disk/unit/media/usb0") << QByteArray("/media/disk/unit/media/usb0");
    QTest::newRow("beside the unit's folder")
        << QByteArray("/media/disk/unit2") << QByteArray("/media/disk/unit/media/disk/unit2");
    QTest::newRow("out of the unit's folder")
        << QByteArray("/media/disk/unit/../x") << QByteArray("/media/disk/unit/media/disk/x");
}

void tst_LedPath::aUnitBelowMediaIsReached()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, led);

    const Unit unit(QStringLiteral("/media/disk/unit"));
    const Gate gate(unit);
    QCOMPARE(QByteArray(LedPath(path.constData()).path()), led);
}

void tst_LedPath::withoutAGatePathsStay()
{
    QCOMPARE(QByteArray(LedPath("/media/usb0").path()), QByteArray("/media/usb0"));
    QVERIFY(LedPath("/media/../etc").isValid());
}

void tst_LedPath::withHostAccessPathsStay()
{
    const Unit unit(QStringLiteral("/unit"));
    const Gate gate(unit);
    const HostAccess access;
    QCOMPARE(QByteArray(LedPath("/media/usb0").path()), QByteArray("/media/usb0"));
    QVERIFY(LedPath("/media/../etc").isValid());
}

void tst_LedPath::noPathStaysNone()
{
    const Unit unit(QStringLiteral("/unit"));
    const Gate gate(unit);
    const LedPath path(nullptr);
    QVERIFY(path.isValid());
    QVERIFY(path.path() == nullptr);
}

void tst_LedPath::theLongestPath_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("error");

    // With "/unit" in front, PATH_MAX - 1 characters are the most.
    QTest::newRow("fits") << PATH_MAX - 1 - 5 << 0;
    QTest::newRow("one too many") << PATH_MAX - 5 << ENAMETOOLONG;
    QTest::newRow("longest of the host's") << PATH_MAX - 1 << ENAMETOOLONG;
    // Left to the host, which refuses it.
    QTest::newRow("longer than any") << PATH_MAX << 0;
}

void tst_LedPath::theLongestPath()
{
    QFETCH(int, length);
    QFETCH(int, error);

    const Unit unit(QStringLiteral("/unit"));
    const Gate gate(unit);
    const QByteArray path = "/media/" + QByteArray(length - 7, 'x');
    errno = 0;
    const LedPath ledPath(path.constData());
    QCOMPARE(ledPath.isValid(), error == 0);
    QCOMPARE(errno, error);
    if (length < PATH_MAX && error == 0) {
        QCOMPARE(QByteArray(ledPath.path()), "/unit" + path);
    } else if (error == 0) {
        QCOMPARE(QByteArray(ledPath.path()), path);
    }
}

QTEST_GUILESS_MAIN(tst_LedPath)
#include "tst_ledpath.moc"
