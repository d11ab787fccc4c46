// How the calls on what is open fail when somebody wants them to, each with each of its failures,
// and that they are the C library's own otherwise.

#include "gate/gate.h"

#include "hardware/unit/falliblecall.h"
#include "hardware/unit/gatebypass.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QtTest>

#include <fcntl.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/select.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <functional>

using hardware::CallFaults;
using hardware::Gate;

Q_DECLARE_METATYPE(std::function<long(int)>)

// What read() and fread() become in a plug-in that is built with _FORTIFY_SOURCE. Not declared by
// the headers.
extern "C" {
ssize_t __read_chk(int descriptor, void *bytes, size_t size, size_t limit);
size_t __fread_chk(void *bytes, size_t limit, size_t size, size_t count, FILE *stream);
}

class TestFailure : public QObject
{
    Q_OBJECT

private slots:
    void callOnADescriptorFails_data();
    void callOnADescriptorFails();
    void shortReadsAndWritesDoHalf();
    void aFileThatFailsToCloseIsClosed();
    void streamsFail();
    void readsOfAHardenedPluginFailToo();
    void memoryIsNotMapped();
    void selectFails();
    void priorityIsRefused();
    void commandEndsAsAsked_data();
    void commandEndsAsAsked();
    void whatIsNotTheUnitsDoesNotFail();
};

namespace
{

const char filePath[] = "/media/flash/file";

class FailingUnit
{
public:
    FailingUnit()
    {
        writeFile(m_unit.path(filePath), "0123456789");
        m_gate.reset(new Gate(*m_unit));
    }

    OpenUnit *operator->() { return &m_unit; }
    hardware::Unit &unit() { return *m_unit; }

    void fail(const char *call, const char *failure, CallFaults::Span span = CallFaults::Once)
    {
        m_unit->callFaults().add(call, 1, failure, span);
    }

private:
    OpenUnit m_unit;
    QScopedPointer<Gate> m_gate;
};

long ioctlFor(int descriptor)
{
    int count = 0;
    return ioctl(descriptor, FIONREAD, &count) == 0 ? count : -1;
}

long attributesOf(int descriptor)
{
    termios attributes;
    return tcgetattr(descriptor, &attributes);
}

long setAttributes(int descriptor)
{
    const termios attributes = termios();
    return tcsetattr(descriptor, TCSANOW, &attributes);
}

long readByte(int descriptor)
{
    char byte = 0;
    return read(descriptor, &byte, 1);
}

} // namespace

void TestFailure::callOnADescriptorFails_data()
{
    using Call = std::function<long(int)>;
    QTest::addColumn<QString>("name");
    QTest::addColumn<Call>("call");
    QTest::addColumn<long>("result");
    QTest::addColumn<int>("errorOtherwise");
    const auto row = [](const char *name, long result, int error, const Call &call) {
        QTest::newRow(name) << name << call << result << error;
    };
    row("read", 1, 0, readByte);
    row("write", 1, 0, [](int file) { return write(file, "x", 1); });
    row("fcntl", O_RDWR, 0, [](int file) { return fcntl(file, F_GETFL) & O_ACCMODE; });
    row("ioctl", 10, 0, ioctlFor);
    // A file is no terminal.
    row("tcgetattr", -1, ENOTTY, attributesOf);
    row("tcsetattr", -1, ENOTTY, setAttributes);
    row("tcdrain", -1, ENOTTY, [](int file) { return tcdrain(file); });
    row("tcflush", -1, ENOTTY, [](int file) { return tcflush(file, TCIFLUSH); });
}

void TestFailure::callOnADescriptorFails()
{
    QFETCH(QString, name);
    QFETCH(std::function<long(int)>, call);
    FailingUnit unit;
    const int file = open(filePath, O_RDWR);
    const QString text = name + ' ' + filePath;
    QStringList told;
    for (const QString &failure : hardware::fallibleCall(name)->failures) {
        if (failure != "short") {
            unit.unit().callFaults().add(name, 1, failure);
            told += "fault " + text + ' ' + failure;
            errno = 0;
            // What it is masked with leaves nothing of it.
            QVERIFY2(call(file) < 0 || name == "fcntl", qPrintable(failure));
            QCOMPARE(errno, hardware::errorNumber(failure));
        }
    }
    errno = 0;
    QTEST(call(file), "result");
    QTEST(errno, "errorOtherwise");
    QCOMPARE(unit->operator->()->journal().lines("fault"), told);
    close(file);
}

void TestFailure::shortReadsAndWritesDoHalf()
{
    FailingUnit unit;
    const int file = open(filePath, O_RDWR);
    char bytes[10];
    unit.fail("read /media/flash", "short", CallFaults::FromThenOn);
    QCOMPARE(read(file, bytes, 7), ssize_t(4));
    QCOMPARE(QByteArray(bytes, 4), QByteArray("0123"));
    QCOMPARE(read(file, bytes, 2), ssize_t(1));
    QCOMPARE(read(file, bytes, 1), ssize_t(1));
    QCOMPARE(QByteArray(bytes, 1), QByteArray("5"));
    unit.unit().callFaults().clear();
    unit.fail("write", "short");
    QCOMPARE(write(file, "abcd", 4), ssize_t(2));
    QCOMPARE(write(file, "cd", 2), ssize_t(2));
    close(file);
    QCOMPARE(readFile(unit->path(filePath)), QByteArray("012345abcd"));
}

void TestFailure::aFileThatFailsToCloseIsClosed()
{
    FailingUnit unit;
    const int file = open(filePath, O_RDWR);
    QCOMPARE(unit.unit().openFiles().paths(), QStringList(filePath));
    unit.fail("close", "EIO");
    errno = 0;
    QCOMPARE(close(file), -1);
    QCOMPARE(errno, EIO);
    QCOMPARE(fcntl(file, F_GETFD), -1);
    FILE *stream = fopen(filePath, "r");
    unit.fail("fclose", "EIO");
    QCOMPARE(fclose(stream), -1);
    QCOMPARE(unit.unit().openFiles().paths(), QStringList());
}

void TestFailure::streamsFail()
{
    FailingUnit unit;
    FILE *stream = fopen(filePath, "r");
    char bytes[10];
    unit.fail("fread", "EIO");
    errno = 0;
    QCOMPARE(fread(bytes, 1, 4, stream), size_t(0));
    QCOMPARE(errno, EIO);
    unit.fail("fread", "short");
    QCOMPARE(fread(bytes, 1, 4, stream), size_t(2));
    QCOMPARE(fread(bytes, 1, 4, stream), size_t(4));
    QCOMPARE(QByteArray(bytes, 4), QByteArray("2345"));
    fclose(stream);
}

void TestFailure::readsOfAHardenedPluginFailToo()
{
    FailingUnit unit;
    char bytes[10];
    const int file = open(filePath, O_RDONLY);
    QCOMPARE(__read_chk(file, bytes, 3, sizeof bytes), ssize_t(3));
    QCOMPARE(QByteArray(bytes, 3), QByteArray("012"));
    unit.fail("read", "short");
    QCOMPARE(__read_chk(file, bytes, 4, sizeof bytes), ssize_t(2));
    unit.fail("read", "EIO");
    errno = 0;
    QCOMPARE(__read_chk(file, bytes, 4, sizeof bytes), ssize_t(-1));
    QCOMPARE(errno, EIO);
    close(file);

    FILE *stream = fopen(filePath, "r");
    unit.fail("fread", "EIO");
    QCOMPARE(__fread_chk(bytes, sizeof bytes, 1, 4, stream), size_t(0));
    unit.fail("fread", "short");
    QCOMPARE(__fread_chk(bytes, sizeof bytes, 1, 4, stream), size_t(2));
    QCOMPARE(__fread_chk(bytes, sizeof bytes, 1, 4, stream), size_t(4));
    QCOMPARE(QByteArray(bytes, 4), QByteArray("2345"));
    fclose(stream);
}

void TestFailure::memoryIsNotMapped()
{
    FailingUnit unit;
    const int memory = open("/dev/mem", O_RDWR);
    QCOMPARE(unit.unit().openFiles().paths(), QStringList("/dev/mem"));
    const auto map = [memory] {
        return mmap(nullptr, 4096, PROT_READ, MAP_SHARED, memory, 0x1000);
    };
    unit.fail("mmap /dev/mem", "ENOMEM");
    errno = 0;
    QCOMPARE(map(), MAP_FAILED);
    QCOMPARE(errno, ENOMEM);
    QCOMPARE(unit.unit().memoryDevice().mappings(), 0);
    void *const mapped = map();
    QVERIFY(mapped != MAP_FAILED);
    munmap(mapped, 4096);
    close(memory);
    QCOMPARE(unit.unit().journal().lines("gate", 0, hardware::Journal::Everything).mid(1, 2),
             (QStringList{"gate mmap(\"/dev/mem\", 4096, PROT_READ, MAP_SHARED) = ENOMEM",
                          "gate mmap(\"/dev/mem\", 4096, PROT_READ, MAP_SHARED)"}));
}

void TestFailure::selectFails()
{
    FailingUnit unit;
    timeval timeout = {0, 100};
    unit.fail("select", "EINTR");
    errno = 0;
    QCOMPARE(select(0, nullptr, nullptr, nullptr, &timeout), -1);
    QCOMPARE(errno, EINTR);
    QCOMPARE(select(0, nullptr, nullptr, nullptr, &timeout), 0);
}

void TestFailure::priorityIsRefused()
{
    FailingUnit unit;
    const int policy = sched_getscheduler(0);
    const sched_param parameters = sched_param();
    unit.fail("sched_setscheduler", "EPERM");
    errno = 0;
    QCOMPARE(sched_setscheduler(0, policy, &parameters), -1);
    QCOMPARE(errno, EPERM);
    QCOMPARE(sched_setscheduler(0, policy, &parameters), 0);
}

void TestFailure::commandEndsAsAsked_data()
{
    QTest::addColumn<int>("status");
    QTest::newRow("1") << W_EXITCODE(1, 0);
    QTest::newRow("127") << W_EXITCODE(127, 0);
    QTest::newRow("killed") << W_EXITCODE(0, SIGKILL);
    QTest::newRow("EAGAIN") << -1;
    QCOMPARE(hardware::fallibleCall("system")->failures,
             (QStringList{"1", "127", "EAGAIN", "killed"}));
}

void TestFailure::commandEndsAsAsked()
{
    FailingUnit unit;
    unit.fail("system", QTest::currentDataTag());
    errno = 0;
    QTEST(system("mkdir /media/folder"), "status");
    QCOMPARE(errno, QTest::currentDataTag() == QByteArray("EAGAIN") ? EAGAIN : 0);
    QVERIFY(!QFile::exists(unit->path("/media/folder")));
}

void TestFailure::whatIsNotTheUnitsDoesNotFail()
{
    FailingUnit unit;
    writeFile(unit->beside("file"), "0123456789");
    const int host = open(qPrintable(unit->beside("file")), O_RDWR);
    const int file = open(filePath, O_RDWR);
    unit.fail("read", "EIO");
    unit.fail("select", "EINTR");
    const auto wait = [] {
        timeval timeout = {0, 100};
        return select(0, nullptr, nullptr, nullptr, &timeout);
    };
    QCOMPARE(readByte(host), 1L);
    {
        const hardware::GateBypass bypass;
        QCOMPARE(readByte(file), 1L);
        QCOMPARE(wait(), 0);
    }
    QCOMPARE(readByte(file), -1L);
    QCOMPARE(wait(), -1);
    close(host);
    close(file);
}

FACTORY_TEST_GUILESS_MAIN(TestFailure)
#include "tst_failure.moc"
