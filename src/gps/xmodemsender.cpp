#include "xmodemsender.h"

#include "gpspackage.h"
#include "gpsserial.h"
#include "receiverdeadline.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace
{

constexpr unsigned char stx = 0x02;
constexpr unsigned char eot = 0x04;
constexpr unsigned char ack = 0x06;
constexpr unsigned char nak = 0x15;
constexpr unsigned char crcRequest = 'C';
constexpr unsigned char padding = 0x1A;

constexpr std::size_t blockSize = 1024;
constexpr std::size_t dataOffset = 3;
constexpr std::size_t crcOffset = dataOffset + blockSize;
constexpr std::size_t frameSize = crcOffset + 2;

constexpr int maxRetries = 10;
constexpr useconds_t answerPauseUs = 10000;
constexpr useconds_t retryPauseUs = 100;

/// One transfer of one file.
class XmodemSender
{
public:
    XmodemSender(int fd, const char *path, std::FILE *file);

    int run();

private:
    enum State { Going, Sent, Failed, FailedWithOpenFile };

    State start();
    State dispatch();
    State sendNextBlock();
    State resendBlock();
    State finish();
    State fail();
    State timeOut();

    void buildFrame();
    /// How many bytes got through; what does not is not answered, and that is what is looked at.
    int send(const unsigned char *bytes, std::size_t count);
    bool waitForData(const ReceiverDeadline &deadline);
    void readAnswer();

    const int m_fd;
    const char *const m_path;
    std::FILE *const m_file;
    int m_block;
    int m_retries;
    unsigned char m_answer;
    unsigned char m_frame[frameSize];
};

XmodemSender::XmodemSender(int fd, const char *path, std::FILE *file)
    : m_fd(fd)
    , m_path(path)
    , m_file(file)
    , m_block(0)
    , m_retries(0)
    , m_answer(0)
    , m_frame()
{
}

int XmodemSender::run()
{
    State state = start();
    while (state == Going) {
        state = dispatch();
    }
    if (state != FailedWithOpenFile) {
        std::fclose(m_file);
    }
    return state == Sent ? 0 : -1;
}

XmodemSender::State XmodemSender::start()
{
    std::printf("Ready to send the file:%s\n", m_path);
    std::puts("Waiting for signal C/NAK!");
    const ReceiverDeadline deadline;
    while (m_answer != crcRequest) {
        if (!waitForData(deadline)) {
            return timeOut();
        }
        usleep(answerPauseUs);
        readAnswer();
    }
    std::printf("The signal NAK: %02x ok!!!\n", m_answer);
    return Going;
}

XmodemSender::State XmodemSender::dispatch()
{
    switch (m_answer) {
    case nak:
        return resendBlock();
    case crcRequest:
        std::printf("begining to Send file %s...\n", m_path);
        return sendNextBlock();
    case ack:
        return sendNextBlock();
    default:
        return fail();
    }
}

XmodemSender::State XmodemSender::sendNextBlock()
{
    unsigned char *data = m_frame + dataOffset;
    const std::size_t count = std::fread(data, 1, blockSize, m_file);
    if (count == 0) {
        return finish();
    }
    if (count < blockSize) {
        std::puts("Start filling the last frame!");
        std::memset(data + count, padding, blockSize - count);
    }
    ++m_block;
    buildFrame();
    send(m_frame, frameSize);
    std::putchar('.');
    std::fflush(stdout);

    if (!waitForData(ReceiverDeadline())) {
        return timeOut();
    }
    usleep(answerPauseUs);
    readAnswer();
    if (m_answer != ack) {
        std::puts("ACK Error!");
        std::printf("0x%02X\n", m_answer);
    }
    m_retries = 0;
    return Going;
}

XmodemSender::State XmodemSender::resendBlock()
{
    if (m_retries > maxRetries) {
        std::puts("Retry too many times,Quit!");
        return Sent;
    }
    ++m_retries;
    const int written = send(m_frame, frameSize);
    std::printf("Retry for ACK,%d,%d...", m_block, written);
    if (!waitForData(ReceiverDeadline())) {
        return timeOut();
    }
    usleep(retryPauseUs);
    readAnswer();
    std::puts(m_answer == ack ? "OK" : "Error!");
    return Going;
}

XmodemSender::State XmodemSender::finish()
{
    m_answer = eot;
    std::puts("Complete ACK");
    const ReceiverDeadline deadline;
    while (m_answer != ack) {
        if (deadline.hasPassed()) {
            return timeOut();
        }
        send(&eot, 1);
        readAnswer();
    }
    std::puts("Send file successful!!!");
    return Sent;
}

XmodemSender::State XmodemSender::fail()
{
    std::printf("Fatal Error! %d\n", m_answer);
    return FailedWithOpenFile;
}

XmodemSender::State XmodemSender::timeOut()
{
    std::printf("\ntimeout!!!\n");
    return Failed;
}

void XmodemSender::buildFrame()
{
    const std::uint16_t crc = get_crc16(m_frame + dataOffset, blockSize);
    m_frame[0] = stx;
    m_frame[1] = static_cast<unsigned char>(m_block);
    m_frame[2] = static_cast<unsigned char>(~m_block);
    m_frame[crcOffset] = static_cast<unsigned char>(crc >> 8);
    m_frame[crcOffset + 1] = static_cast<unsigned char>(crc);
}

int XmodemSender::send(const unsigned char *bytes, std::size_t count)
{
    return static_cast<int>(write(m_fd, bytes, count));
}

bool XmodemSender::waitForData(const ReceiverDeadline &deadline)
{
    while (!deadline.hasPassed()) {
        if (wait_readable(m_fd) > 0) {
            return true;
        }
    }
    return false;
}

void XmodemSender::readAnswer()
{
    deal_read(m_fd, &m_answer, 1);
}

} // namespace

int xmodem_send(int fd, const char *path)
{
    std::printf("[%s]\n", path);
    std::FILE *file = std::fopen(path, "rb");
    if (file == nullptr) {
        std::printf("\n can't open this file or not exist!(errno=%d:%s) \n", errno,
                    std::strerror(errno));
        return -1;
    }
    return XmodemSender(fd, path, file).run();
}
