#include "gate/gate.h"

#include "hardware/unit/gatebypass.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QRegularExpression>
#include <QtTest>

#include <fcntl.h>
#include <sys/select.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

using hardware::Gate;
using hardware::Journal;

/// What the journal says of the calls that the gate hands on, and how they are made to fail.
class TestUnitCall : public QObject
{
    Q_OBJECT

private slots:
    void callsOnPathsAreToldInTheirOrder();
    void waitsAreToldWithWhatTheyTook();
    void whatIsNotTheUnitsIsNotTold();
    void errnoIsKept();
    void aCallFailsOnce();
    void aCommandFailsWithoutBeingRun();
};

namespace
{

QStringList told(OpenUnit &unit)
{
    return unit->journal().lines(QString(), 0, Journal::Everything);
}

/// Opens and closes.
bool canOpen(const char *path, int flags)
{
    const int descriptor = open(path, flags);
    return descriptor >= 0 && close(descriptor) == 0;
}

} // namespace

void TestUnitCall::callsOnPathsAreToldInTheirOrder()
{
    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/media/usb0/file")), "content");
    const Gate gate(*unit);

    QVERIFY(canOpen("/media/usb0/file", O_RDWR | O_SYNC));
    QVERIFY(canOpen("/media/usb0/../usb0/new", O_WRONLY | O_CREAT | O_TRUNC));
    QVERIFY(!canOpen("/sys/module/none", O_RDONLY | O_NOCTTY | O_NONBLOCK));
    FILE *stream = fopen("/media/usb0/file", "rb");
    QVERIFY(stream != nullptr);
    fclose(stream);
    QVERIFY(fopen("/media/none", "w+") != nullptr);
    QCOMPARE(access("/media/usb0", F_OK), 0);
    struct stat64 status;
    QCOMPARE(stat64("/media/usb1", &status), -1);
    QCOMPARE(rename("/media/usb0/new", "/media/usb0/old"), 0);
    QCOMPARE(mkdir("/media/usb0", 0755), -1);

    QCOMPARE(
        told(unit),
        QStringList({QStringLiteral("gate open(\"/media/usb0/file\", O_RDWR|O_SYNC)"),
                     QStringLiteral("gate open(\"/media/usb0/new\", O_WRONLY|O_CREAT|O_TRUNC)"),
                     QStringLiteral("gate open(\"/sys/module/none\", "
                                    "O_RDONLY|O_NOCTTY|O_NONBLOCK) = ENOENT"),
                     QStringLiteral("gate fopen(\"/media/usb0/file\", \"rb\")"),
                     QStringLiteral("gate fopen(\"/media/none\", \"w+\")"),
                     QStringLiteral("gate access(\"/media/usb0\")"),
                     QStringLiteral("gate stat(\"/media/usb1\") = ENOENT"),
                     QStringLiteral("gate rename(\"/media/usb0/new\", \"/media/usb0/old\")"),
                     QStringLiteral("gate mkdir(\"/media/usb0\") = EEXIST")}));
    // Nobody sees them who does not ask.
    QCOMPARE(unit->journal().lines(), QStringList());
}

void TestUnitCall::waitsAreToldWithWhatTheyTook()
{
    OpenUnit unit(10.0);
    const Gate gate(*unit);
    QCOMPARE(usleep(300000), 0);
    QCOMPARE(sleep(1), 0u);
    timeval timeout = {0, 200000};
    QCOMPARE(select(0, nullptr, nullptr, nullptr, &timeout), 0);

    const QStringList calls = {QStringLiteral("usleep\\(300000\\) = 0"),
                               QStringLiteral("sleep\\(1\\) = 0"),
                               QStringLiteral("select\\(200000\\) = 0")};
    const double seconds[] = {0.3, 1.0, 0.2};
    const QStringList lines = told(unit);
    QCOMPARE(lines.size(), calls.size());
    for (int i = 0; i < lines.size(); ++i) {
        const QRegularExpression form(
            QStringLiteral("^gate %1 <([0-9]+\\.[0-9]{3})>$").arg(calls.at(i)));
        const QRegularExpressionMatch match = form.match(lines.at(i));
        QVERIFY2(match.hasMatch(), qPrintable(lines.at(i)));
        // In the unit's time; a busy host is later.
        const double took = match.captured(1).toDouble();
        QVERIFY2(took >= seconds[i] && took < seconds[i] + 5, qPrintable(lines.at(i)));
    }
}

void TestUnitCall::whatIsNotTheUnitsIsNotTold()
{
    OpenUnit unit;
    writeFile(unit.beside(QStringLiteral("file")), "content");
    const Gate gate(*unit);
    QVERIFY(canOpen(qPrintable(unit.beside(QStringLiteral("file"))), O_RDONLY));
    QVERIFY(canOpen(qPrintable(unit.path(QStringLiteral("/vendor.ini"))), O_RDONLY));
    {
        const hardware::GateBypass bypass;
        QVERIFY(!canOpen("/media/no such file", O_RDONLY));
        usleep(1);
    }
    QCOMPARE(told(unit), QStringList());
}

void TestUnitCall::errnoIsKept()
{
    OpenUnit unit;
    const Gate gate(*unit);
    errno = 0;
    QCOMPARE(access("/media/none", F_OK), -1);
    QCOMPARE(errno, ENOENT);
    errno = EDOM;
    QCOMPARE(usleep(1), 0);
    QCOMPARE(errno, EDOM);
}

void TestUnitCall::aCallFailsOnce()
{
    OpenUnit unit;
    writeFile(unit.path(QStringLiteral("/media/usb0/file")), "content");
    const Gate gate(*unit);
    unit->callFaults().add(QStringLiteral("open /media/usb0"), 2);

    QVERIFY(canOpen("/media/usb0/file", O_RDONLY));
    QCOMPARE(access("/media/usb0/file", F_OK), 0);
    errno = 0;
    QVERIFY(!canOpen("/media/usb0/file", O_RDONLY));
    QCOMPARE(errno, EIO);
    QVERIFY(canOpen("/media/usb0/file", O_RDONLY));
    const QString opened = QStringLiteral("gate open(\"/media/usb0/file\", O_RDONLY)");
    QCOMPARE(told(unit),
             QStringList({opened, QStringLiteral("gate access(\"/media/usb0/file\")"),
                          QStringLiteral("fault open /media/usb0/file"),
                          opened + QStringLiteral(" = EIO"), opened}));
}

void TestUnitCall::aCommandFailsWithoutBeingRun()
{
    OpenUnit unit;
    const Gate gate(*unit);
    unit->callFaults().add(QStringLiteral("system mkdir"), 1);
    const char command[] = "mkdir /media/folder";
    const int status = system(command);
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 1);
    QVERIFY(!QFile::exists(unit.path(QStringLiteral("/media/folder"))));
    QCOMPARE(system(command), 0);
    QVERIFY(QFile::exists(unit.path(QStringLiteral("/media/folder"))));
    QCOMPARE(unit->journal().lines(),
             QStringList({QStringLiteral("fault system mkdir /media/folder"),
                          QStringLiteral("shell mkdir /media/folder")}));
}

FACTORY_TEST_GUILESS_MAIN(TestUnitCall)
#include "tst_unitcall.moc"
