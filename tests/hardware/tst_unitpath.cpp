#include "hardware/unit/unitpath.h"

#include "support/testmain.h"

#include <QtTest>

#include <cerrno>
#include <cstring>

using hardware::UnitPath;

Q_DECLARE_METATYPE(hardware::UnitPath::Place)

class tst_UnitPath : public QObject
{
    Q_OBJECT

private slots:
    void place_data();
    void place();
    void length_data();
    void length();
    void errnoIsKept();
};

void tst_UnitPath::place_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<UnitPath::Place>("place");

    const auto row = [](const char *path, const char *text, UnitPath::Place place) {
        QTest::newRow(path) << QByteArray(path) << QByteArray(text) << place;
    };
    // Each path of the table, with what is below it, and its neighbours by name.
    row("/dev/mem", "/dev/mem", UnitPath::OfUnit);
    row("/dev/mem2", "/dev/mem2", UnitPath::OfHost);
    row("/dev/ttyS3", "/dev/ttyS3", UnitPath::OfUnit);
    row("/dev/ttyS30", "/dev/ttyS30", UnitPath::OfHost);
    row("/media", "/media", UnitPath::OfUnit);
    row("/media/flash/userdata", "/media/flash/userdata", UnitPath::OfUnit);
    row("/mediaX", "/mediaX", UnitPath::Elsewhere);
    row("/medi", "/medi", UnitPath::Elsewhere);
    row("/proc/sys/kernel/printk", "/proc/sys/kernel/printk", UnitPath::OfUnit);
    row("/proc/sysx", "/proc/sysx", UnitPath::OfHost);
    row("/sys/devices/platform/ehci-platform.1/usb_speed_switch",
        "/sys/devices/platform/ehci-platform.1/usb_speed_switch", UnitPath::OfUnit);
    row("/sys/module/usbcore/parameters/usb_logo_test_start",
        "/sys/module/usbcore/parameters/usb_logo_test_start", UnitPath::OfUnit);

    // The host's own.
    row("/dev", "/dev", UnitPath::OfHost);
    row("/dev/null", "/dev/null", UnitPath::OfHost);
    row("/proc/self/fd/3", "/proc/self/fd/3", UnitPath::OfHost);
    row("/sys", "/sys", UnitPath::OfHost);
    row("/sys/devices", "/sys/devices", UnitPath::OfHost);

    // No business of the unit's.
    row("/", "/", UnitPath::Elsewhere);
    row("/tmp/media/usb0", "/tmp/media/usb0", UnitPath::Elsewhere);
    row("/devices", "/devices", UnitPath::Elsewhere);

    // Made plain.
    row("//media///usb0", "/media/usb0", UnitPath::OfUnit);
    row("/./media/./usb0", "/media/usb0", UnitPath::OfUnit);
    row("/media/usb0/", "/media/usb0/", UnitPath::OfUnit);
    row("/media/usb0//", "/media/usb0/", UnitPath::OfUnit);
    row("/media/usb0/.", "/media/usb0/", UnitPath::OfUnit);
    row("/media/", "/media/", UnitPath::OfUnit);
    row("///", "/", UnitPath::Elsewhere);
    row("/.", "/", UnitPath::Elsewhere);
    row("/..", "/", UnitPath::Elsewhere);
    row("/media/usb0/../flash", "/media/flash", UnitPath::OfUnit);
    row("/media/usb0/..", "/media/", UnitPath::OfUnit);
    row("/tmp/../media/usb0", "/media/usb0", UnitPath::OfUnit);
    row("/../../media", "/media", UnitPath::OfUnit);
    row("/media/...", "/media/...", UnitPath::OfUnit);
    row("/media/..a", "/media/..a", UnitPath::OfUnit);
    row("/dev/../dev/null", "/dev/null", UnitPath::OfHost);

    // Out of the unit's paths, back into them, and into others of them.
    row("/media/..", "/", UnitPath::Astray);
    row("/media/../etc/passwd", "/etc/passwd", UnitPath::Astray);
    row("/media/usb0/../../etc", "/etc", UnitPath::Astray);
    row("/media/../dev/sda", "/dev/sda", UnitPath::Astray);
    row("/dev/mem/../null", "/dev/null", UnitPath::Astray);
    row("/sys/module/..", "/sys/", UnitPath::Astray);
    row("/media/../tmp/../media/usb0", "/media/usb0", UnitPath::OfUnit);
    row("/media/../dev/mem", "/dev/mem", UnitPath::OfUnit);
}

void tst_UnitPath::place()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, text);
    QFETCH(UnitPath::Place, place);

    const UnitPath unitPath(path.constData());
    QCOMPARE(QByteArray(unitPath.text()), text);
    QCOMPARE(unitPath.length(), std::size_t(text.size()));
    QCOMPARE(int(unitPath.place()), int(place));
}

void tst_UnitPath::length_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("fits");

    // The host takes paths of up to PATH_MAX - 1 = 4095 characters.
    const QByteArray longest = "/media/" + QByteArray(PATH_MAX - 1 - 7, 'x');
    QTest::newRow("longest") << longest << true;
    QTest::newRow("longest with a slash") << longest.left(longest.size() - 1) + '/' << true;
    QTest::newRow("one more") << longest + 'x' << false;
    QTest::newRow("one more slash") << longest + '/' << true;
    QTest::newRow("long, yet short when plain")
        << "/media" + QByteArray("/.").repeated(PATH_MAX) + "/usb0" << true;
    QTest::newRow("long on the way") << "/media/" + QByteArray(PATH_MAX, 'x') + "/.." << false;
}

void tst_UnitPath::length()
{
    QFETCH(QByteArray, path);
    QFETCH(bool, fits);

    const UnitPath unitPath(path.constData());
    QCOMPARE(int(unitPath.place()), int(fits ? UnitPath::OfUnit : UnitPath::TooLong));
    QCOMPARE(unitPath.length() > 0, fits);
    QCOMPARE(std::strlen(unitPath.text()), unitPath.length());
}

void tst_UnitPath::errnoIsKept()
{
    errno = 123;
    const UnitPath path("/media/../etc");
    QCOMPARE(int(path.place()), int(UnitPath::Astray));
    QCOMPARE(errno, 123);
}

FACTORY_TEST_GUILESS_MAIN(tst_UnitPath)
#include "tst_unitpath.moc"
