#include "gps/xmodemsender.h"

#include "gps/gpsserial.h"
#include "stdoutcapture.h"
#include "testline.h"
#include "waitslack.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <future>
#include <thread>
#include <vector>

/// The sender beside a receiver that is not ours: "rx" of the package lrzsz.
class TestLrzsz : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void rxGetsTheFile_data();
    void rxGetsTheFile();
};

namespace
{

#ifdef __arm__
// The emulator loses processes that several threads start at once.
const int times = 3;
const int transfersAtOnce = 1;
#else
const int times = 50;

/// Since rx idles for a second each time. With many more a host keeps each rx waiting too long.
const int transfersAtOnce = 10;
#endif

QString rx()
{
    return QStandardPaths::findExecutable(QStringLiteral("rx"));
}

/// A running "rx" that writes to a file. It has a terminal of its own to read from, and answers
/// through a pipe: it flushes its terminal as it exits, and its last answer must not go with that.
class Rx
{
public:
    explicit Rx(const QByteArray &file)
    {
        int answers[2];
        if (pipe2(answers, O_CLOEXEC) != 0) {
            qFatal("There is no pipe for rx.");
        }
        m_answers = answers[0];
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, m_terminal.port(), STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, answers[1], STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        const QByteArray program = QFile::encodeName(rx());
        char *arguments[] = {const_cast<char *>("rx"), const_cast<char *>("-c"),
                             const_cast<char *>(file.constData()), nullptr};
        if (posix_spawn(&m_process, program.constData(), &actions, nullptr, arguments, environ)
            != 0) {
            qFatal("rx does not start.");
        }
        posix_spawn_file_actions_destroy(&actions);
        close(answers[1]);
    }

    ~Rx() { close(m_answers); }

    int terminal() const { return m_terminal.farEnd(); }
    int answers() const { return m_answers; }

    bool endsWell(bool isHopeless)
    {
        if (isHopeless) {
            kill(m_process, SIGKILL);
        }
        int status = -1;
        return waitpid(m_process, &status, 0) == m_process && WIFEXITED(status)
            && WEXITSTATUS(status) == 0;
    }

private:
    TestLine m_terminal;
    int m_answers;
    pid_t m_process;
};

QByteArray readSome(int from)
{
    char bytes[4096];
    const ssize_t count = read(from, bytes, sizeof bytes);
    return QByteArray(bytes, int(qMax<ssize_t>(0, count)));
}

void writeAll(int to, const QByteArray &bytes)
{
    const ssize_t written = write(to, bytes.constData(), size_t(bytes.size()));
    Q_UNUSED(written);
}

/// Passes frames on whole: rx takes a gap of a tenth of a second, which a busy host may well make,
/// for a lost byte.
void relay(const TestLine &line, const Rx &receiver, const std::atomic<bool> &isOver,
           QByteArray *record)
{
    const char stx = 0x02;
    const int frameSize = 1029;
    QByteArray sent;
    pollfd ends[] = {{line.farEnd(), POLLIN, 0}, {receiver.answers(), POLLIN, 0}};
    while (!isOver && poll(ends, 2, 20) >= 0) {
        if (ends[0].revents != 0) {
            sent += readSome(line.farEnd());
        }
        const int needed = sent.startsWith(stx) ? frameSize : 1;
        if (sent.size() >= needed) {
            writeAll(receiver.terminal(), sent.left(needed));
            sent.remove(0, needed);
            *record += needed == 1 ? " E" : " F";
        }
        if (ends[1].revents != 0) {
            const QByteArray answers = readSome(receiver.answers());
            // Behind its first request rx throws away what has come; a host that is busy just then
            // would have it throw away the first frame.
            if (record->isEmpty()) {
                QTest::qSleep(400);
            }
            writeAll(line.farEnd(), answers);
            *record += ' ' + answers.toHex();
            ends[1].fd = answers.isEmpty() ? -1 : ends[1].fd;
        }
    }
}

QByteArray content(int size, int seed)
{
    QByteArray bytes;
    for (int index = 0; index < size; ++index) {
        bytes.append(char(index * 7 + index / 256 + seed));
    }
    return bytes;
}

/// Sends that content to an rx of its own; empty when rx got it, with the last block filled up.
QString transfer(const QByteArray &content)
{
    const QTemporaryDir folder;
    const QString sent = folder.filePath(QStringLiteral("sent"));
    const QString received = folder.filePath(QStringLiteral("received"));
    writeFile(sent, content);
    const TestLine line;
    Rx receiver(QFile::encodeName(received));
    std::atomic<bool> isOver(false);
    QByteArray record; // of frames, EOTs and answers
    std::thread relaying([&] { relay(line, receiver, isOver, &record); });
    const int result = xmodem_send(line.port(), QFile::encodeName(sent).constData());
    const bool endedWell = receiver.endsWell(result != 0);
    isOver = true;
    relaying.join();
    if (result != 0 || !endedWell) {
        return QStringLiteral("xmodem_send() gives %1; the line's last bytes are %3; rx ends %2")
            .arg(result)
            .arg(endedWell ? QStringLiteral("well") : QStringLiteral("badly"),
                 QString::fromLatin1(record.right(120)));
    }
    const int filling = -content.size() & 1023;
    return readFile(received) == content + QByteArray(filling, '\x1A')
        ? QString()
        : QStringLiteral("rx got something else");
}

} // namespace

void TestLrzsz::initTestCase()
{
    QVERIFY2(!rx().isEmpty(), "The package lrzsz is not installed.");
    letWaitsEndLate();
}

void TestLrzsz::rxGetsTheFile_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("1 byte") << 1;
    QTest::newRow("one less than a block") << 1023;
    QTest::newRow("a block") << 1024;
    QTest::newRow("one more than a block") << 1025;
    // 300 blocks: their numbers wrap.
    QTest::newRow("300 KiB") << 300 * 1024;
}

void TestLrzsz::rxGetsTheFile()
{
    QFETCH(int, size);
    // The gate leaves time alone: rx lives in the host's, and where a busy host has made it lose
    // patience with a frame, it asks for it again only after five seconds.
    const TestUnit unit;
    use_select_wait = 1;
    std::vector<QString> complaints;
    {
        const StdoutCapture output;
        for (int first = 0; first < times; first += transfersAtOnce) {
            std::vector<std::future<QString>> transfers;
            for (int time = first; time < qMin(times, first + transfersAtOnce); ++time) {
                transfers.push_back(std::async(std::launch::async, transfer, content(size, time)));
            }
            for (std::future<QString> &transfer : transfers) {
                complaints.push_back(transfer.get());
            }
        }
    }
    for (const QString &complaint : complaints) {
        QCOMPARE(complaint, QString());
    }
}

FACTORY_TEST_MAIN(TestLrzsz)
#include "tst_lrzsz.moc"
