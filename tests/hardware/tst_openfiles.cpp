// Files on storage as a program has them behind the gate, when a stick is pulled: its calls are
// those of the C library.

#include "hardware/storage/openfiles.h"

#include "gate/gate.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QtTest>

#include <cerrno>
#include <cstdio>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

using hardware::Gate;

class tst_OpenFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void streamFailsFromThePullOn();
    void descriptorFailsFromThePullOn();
    void otherFilesGoOn();
    void anotherFileOfTheSameNumberGoesOn();
    void pluggedAgainItIsReadAnew();
    void whatAProgramLeavesOpenEndsWithIt();
    void errnoIsKept();

private:
    QScopedPointer<OpenUnit> m_unit;
    QScopedPointer<Gate> m_gate;
};

namespace
{

const char onUsb0[] = "/media/usb0/folder/file";
const char onUsb1[] = "/media/usb1/file";
const char onFlash[] = "/media/flash/file";
const int fileSize = 100000;

using Stream = std::unique_ptr<FILE, int (*)(FILE *)>;

Stream openStream(const char *path)
{
    return Stream(std::fopen(path, "rb"), std::fclose);
}

/// How many bytes are read up to the end or an error.
int readOn(FILE *stream)
{
    char bytes[1024];
    int size = 0;
    for (size_t count = 1; count > 0;) {
        count = std::fread(bytes, 1, sizeof bytes, stream);
        size += int(count);
    }
    return size;
}

void plug(OpenUnit &unit, const QString &slot)
{
    QString error;
    QVERIFY2(unit->storage().plug(slot, QString(), &error), qPrintable(error));
}

void pull(OpenUnit &unit, const QString &slot)
{
    QString error;
    QVERIFY2(unit->storage().pull(slot, &error), qPrintable(error));
}

} // namespace

void tst_OpenFiles::init()
{
    m_unit.reset(new OpenUnit);
    for (const char *path : {"/sticks/usb0/folder/file", "/sticks/usb1/file", onFlash}) {
        writeFile(m_unit->path(path), QByteArray(fileSize, 'x'));
    }
    plug(*m_unit, "usb0");
    plug(*m_unit, "usb1");
    m_gate.reset(new Gate(**m_unit));
}

void tst_OpenFiles::cleanup()
{
    m_gate.reset();
    m_unit.reset();
}

void tst_OpenFiles::streamFailsFromThePullOn()
{
    const Stream stream = openStream(onUsb0);
    QVERIFY(stream != nullptr);
    char byte = 0;
    QCOMPARE(std::fread(&byte, 1, 1, stream.get()), size_t(1));
    pull(*m_unit, "usb0");
    // What its buffer holds is the program's own.
    errno = 0;
    QCOMPARE(readOn(stream.get()), 4095);
    QCOMPARE(errno, EIO);
    QVERIFY(std::ferror(stream.get()) != 0);
    QVERIFY(std::feof(stream.get()) == 0);
}

void tst_OpenFiles::descriptorFailsFromThePullOn()
{
    const int descriptor = open(onUsb0, O_RDONLY | O_CLOEXEC);
    char bytes[10];
    QCOMPARE(read(descriptor, bytes, sizeof bytes), ssize_t(sizeof bytes));
    pull(*m_unit, "usb0");
    for (int time = 0; time < 2; ++time) {
        errno = 0;
        QCOMPARE(read(descriptor, bytes, sizeof bytes), ssize_t(-1));
        QCOMPARE(errno, EIO);
    }
    QCOMPARE(fcntl(descriptor, F_GETFD), FD_CLOEXEC);
    QCOMPARE(close(descriptor), 0);
}

void tst_OpenFiles::otherFilesGoOn()
{
    QTemporaryFile host;
    QVERIFY(host.open());
    host.write(QByteArray(fileSize, 'x'));
    host.close();
    for (const QByteArray &path :
         {QByteArray(onUsb1), QByteArray(onFlash), QFile::encodeName(host.fileName()),
          QFile::encodeName(m_unit->path("/sticks/usb0/folder/file"))}) {
        const Stream stream = openStream(path);
        QVERIFY2(stream != nullptr, path);
        pull(*m_unit, "usb0");
        QCOMPARE(readOn(stream.get()), fileSize);
        plug(*m_unit, "usb0");
    }
}

void tst_OpenFiles::anotherFileOfTheSameNumberGoesOn()
{
    // Closed by a way that the gate does not see.
    const int descriptor = open(onUsb0, O_RDONLY);
    const int other = open(onUsb1, O_RDONLY);
    QCOMPARE(dup2(other, descriptor), descriptor);
    // And by one that it sees.
    Stream stream = openStream(onUsb0);
    const int number = fileno(stream.get());
    stream.reset();
    const Stream next = openStream(onFlash);
    QCOMPARE(fileno(next.get()), number);

    pull(*m_unit, "usb0");
    char byte = 0;
    QCOMPARE(read(descriptor, &byte, 1), ssize_t(1));
    QCOMPARE(readOn(next.get()), fileSize);
    close(descriptor);
    close(other);
}

void tst_OpenFiles::pluggedAgainItIsReadAnew()
{
    const Stream before = openStream(onUsb0);
    pull(*m_unit, "usb0");
    plug(*m_unit, "usb0");
    QCOMPARE(readOn(before.get()), 0);
    const Stream again = openStream(onUsb0);
    QCOMPARE(readOn(again.get()), fileSize);
}

void tst_OpenFiles::whatAProgramLeavesOpenEndsWithIt()
{
    QTemporaryFile host;
    QVERIFY(host.open());
    const int onStick = open(onUsb0, O_RDONLY);
    const int onOther = open(onUsb1, O_RDONLY);
    const int closed = open(onFlash, O_RDONLY);
    close(closed);
    const int notTheUnits = open(QFile::encodeName(host.fileName()).constData(), O_RDONLY);
    QCOMPARE(notTheUnits, closed);
    pull(*m_unit, "usb0");
    (*m_unit)->programsEnded();
    QCOMPARE(fcntl(onStick, F_GETFD), -1);
    QCOMPARE(fcntl(onOther, F_GETFD), -1);
    QCOMPARE(close(notTheUnits), 0);
}

void tst_OpenFiles::errnoIsKept()
{
    errno = EDOM;
    const int descriptor = open(onUsb0, O_RDONLY);
    (*m_unit)->openFiles().cut("/media/usb0");
    close(descriptor);
    QCOMPARE(errno, EDOM);
}

FACTORY_TEST_GUILESS_MAIN(tst_OpenFiles)
#include "tst_openfiles.moc"
