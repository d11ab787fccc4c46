#include "gate/mappedpath.h"

#include "gate/gate.h"
#include "hardware/unit/gatebypass.h"
#include "hardware/unit/unit.h"
#include "support/testmain.h"

#include <QtTest>

#include <cerrno>
#include <climits>

using hardware::Gate;
using hardware::GateBypass;
using hardware::MappedPath;
using hardware::Unit;

class TestMappedPath : public QObject
{
    Q_OBJECT

private slots:
    void mapped_data();
    void mapped();
    void aUnitBelowMediaIsReached_data();
    void aUnitBelowMediaIsReached();
    void withoutAGatePathsStay();
    void withAGateBypassPathsStay();
    void noPathStaysNone();
    void theLongestPath_data();
    void theLongestPath();
};

void TestMappedPath::mapped_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("mapped"); // null when the call is to fail

    const auto row = [](const char *path, const char *mapped) {
        QTest::newRow(path) << QByteArray(path) << QByteArray(mapped);
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

void TestMappedPath::mapped()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, mapped);

    const Unit unit(QStringLiteral("/unit"));
    const Gate gate(unit);
    errno = 0;
    const MappedPath mappedPath(path.constData());
    QCOMPARE(mappedPath.isValid(), !mapped.isNull());
    if (mapped.isNull()) {
        QCOMPARE(errno, EACCES);
    } else {
        QCOMPARE(QByteArray(mappedPath.path()), mapped);
        QCOMPARE(errno, 0);
    }
}

void TestMappedPath::aUnitBelowMediaIsReached_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("mapped");

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

void TestMappedPath::aUnitBelowMediaIsReached()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, mapped);

    const Unit unit(QStringLiteral("/media/disk/unit"));
    const Gate gate(unit);
    QCOMPARE(QByteArray(MappedPath(path.constData()).path()), mapped);
}

void TestMappedPath::withoutAGatePathsStay()
{
    QCOMPARE(QByteArray(MappedPath("/media/usb0").path()), QByteArray("/media/usb0"));
    QVERIFY(MappedPath("/media/../etc").isValid());
}

void TestMappedPath::withAGateBypassPathsStay()
{
    const Unit unit(QStringLiteral("/unit"));
    const Gate gate(unit);
    const GateBypass access;
    QCOMPARE(QByteArray(MappedPath("/media/usb0").path()), QByteArray("/media/usb0"));
    QVERIFY(MappedPath("/media/../etc").isValid());
}

void TestMappedPath::noPathStaysNone()
{
    const Unit unit(QStringLiteral("/unit"));
    const Gate gate(unit);
    const MappedPath path(nullptr);
    QVERIFY(path.isValid());
    QVERIFY(path.path() == nullptr);
}

void TestMappedPath::theLongestPath_data()
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

void TestMappedPath::theLongestPath()
{
    QFETCH(int, length);
    QFETCH(int, error);

    const Unit unit(QStringLiteral("/unit"));
    const Gate gate(unit);
    const QByteArray path = "/media/" + QByteArray(length - 7, 'x');
    errno = 0;
    const MappedPath mappedPath(path.constData());
    QCOMPARE(mappedPath.isValid(), error == 0);
    QCOMPARE(errno, error);
    if (length < PATH_MAX && error == 0) {
        QCOMPARE(QByteArray(mappedPath.path()), "/unit" + path);
    } else if (error == 0) {
        QCOMPARE(QByteArray(mappedPath.path()), path);
    }
}

FACTORY_TEST_GUILESS_MAIN(TestMappedPath)
#include "tst_mappedpath.moc"
